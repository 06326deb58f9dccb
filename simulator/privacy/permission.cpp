#include "privacy/permission.h"

namespace mac_model {

namespace {
DefaultsDomain privacyDomain() { return {"com.apple.TCC"}; }
} // namespace

Permission::Permission(VirtualScheduler& scheduler, PreferencesStore& preferences,
                       const Uncertainties& uncertainties, const std::string& bundleIdentifier,
                       AtFirst atFirst)
    : scheduler_(scheduler)
    , world_(scheduler)
    , preferences_(preferences)
    , uncertainties_(uncertainties)
    , key_("kTCCServiceAccessibility " + bundleIdentifier)
    , atFirst_(atFirst) {}

bool Permission::isTrusted() const {
    return preferences_.boolean(privacyDomain(), key_).value_or(atFirst_ == AtFirst::Trusted);
}

bool Permission::isListed() const {
    return atFirst_ != AtFirst::Unlisted || preferences_.value(privacyDomain(), key_).has_value();
}

void Permission::list() {
    if (isListed()) return;
    preferences_.set(privacyDomain(), key_, {false});
    onChanged.emit();
}

bool Permission::isTrustedAsTold() const {
    return scheduler_.now() < staleUntil_ ? toldWhileStale_ : isTrusted();
}

void Permission::setTrusted(bool trusted) {
    if (trusted == isTrusted()) return;
    toldWhileStale_ = isTrustedAsTold();
    wasRevoked_ = !trusted;
    preferences_.set(privacyDomain(), key_, {trusted});
    if (uncertainties_.permissionNotice == PermissionNotice::Stale) {
        staleUntil_ = scheduler_.now() + noticeDelay + staleTime;
        world_.after(noticeDelay + staleTime,
                     [] {}); // so that waiting for everything to settle includes this
    }
    onChanged.emit();
    changeOtherEntry();
}

void Permission::changeOtherEntry() {
    world_.after(noticeDelay, [this] { onNotice.emit(); });
}

} // namespace mac_model
