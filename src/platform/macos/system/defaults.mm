#include "platform/macos/system/defaults.h"

#include "platform/macos/support/conversions.h"
#include "platform/macos/support/main_thread.h"

#include <algorithm>

namespace tavrin::macos {

namespace {

constexpr std::string_view globalDomain = ".GlobalPreferences";

/// The name as CFPreferences knows it. Under the constant for the own domain AppKit sees changes at once:
/// status items read their stored places through it.
CfReference<CFStringRef> applicationOf(const DefaultsDomain& domain, const DefaultsDomain& own) {
    if (domain.name == own.name) return CfReference<CFStringRef>::retaining(kCFPreferencesCurrentApplication);
    if (domain.name == globalDomain) return CfReference<CFStringRef>::retaining(kCFPreferencesAnyApplication);
    return cfString(domain.name);
}

CFStringRef hostOf(const DefaultsDomain& domain) {
    return domain.host == DefaultsDomain::Host::Current ? kCFPreferencesCurrentHost : kCFPreferencesAnyHost;
}

void store(const DefaultsDomain& domain, const DefaultsDomain& own, std::string_view key,
           CFPropertyListRef value) {
    assertMainThread();
    CFPreferencesSetValue(cfString(key).get(), value, applicationOf(domain, own).get(),
                          kCFPreferencesCurrentUser, hostOf(domain));
}

} // namespace

/// An executable without a bundle has its process name for a domain, as in CFPreferences.
DefaultsDomain MacDefaults::ownDomain() const {
    NSString* bundle = NSBundle.mainBundle.bundleIdentifier;
    return {toString(bundle ? bundle : NSProcessInfo.processInfo.processName), DefaultsDomain::Host::Any};
}

std::optional<DefaultsValue> MacDefaults::value(const DefaultsDomain& domain, std::string_view key) const {
    @autoreleasepool {
        const auto stored = CfReference<CFPropertyListRef>::adopting(
            CFPreferencesCopyValue(cfString(key).get(), applicationOf(domain, ownDomain()).get(),
                                   kCFPreferencesCurrentUser, hostOf(domain)));
        return defaultsValueFrom((__bridge id)stored.get());
    }
}

void MacDefaults::set(const DefaultsDomain& domain, std::string_view key, DefaultsValue value) {
    const auto list = cfBridged<CFPropertyListRef>(propertyListFrom(value));
    store(domain, ownDomain(), key, list.get());
}

void MacDefaults::remove(const DefaultsDomain& domain, std::string_view key) {
    store(domain, ownDomain(), key, nullptr);
}

std::vector<std::string> MacDefaults::keys(const DefaultsDomain& domain) const {
    assertMainThread();
    const auto stored = CfReference<CFArrayRef>::adopting(CFPreferencesCopyKeyList(
        applicationOf(domain, ownDomain()).get(), kCFPreferencesCurrentUser, hostOf(domain)));
    std::vector<std::string> keys;
    for (id key in (__bridge NSArray*)stored.get())
        if (auto name = textIn(key)) keys.push_back(std::move(*name));
    std::ranges::sort(keys);
    return keys;
}

void MacDefaults::synchronize(const DefaultsDomain& domain) {
    assertMainThread();
    CFPreferencesSynchronize(applicationOf(domain, ownDomain()).get(), kCFPreferencesCurrentUser,
                             hostOf(domain));
}

} // namespace tavrin::macos
