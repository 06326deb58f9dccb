#include "accessibility/accessibility_permission.h"

#include "concurrency/waits.h"

#include <utility>

namespace tavrin {

AccessibilityPermission::AccessibilityPermission(Scheduler& scheduler, Accessibility& accessibility,
                                                 Application& application)
    : scheduler_(scheduler)
    , accessibility_(accessibility)
    , application_(application)
    , isTrusted_(accessibility.isTrusted()) {
    if (!isTrusted()) startMonitoring();
}

AccessibilityPermission::~AccessibilityPermission() { stopMonitoring(); }

void AccessibilityPermission::refresh() {
    const bool isNowTrusted = accessibility_.isTrusted();
    if (isNowTrusted) {
        stopMonitoring();
    } else {
        startMonitoring();
    }
    isTrusted_.set(isNowTrusted);
}

void AccessibilityPermission::openSettings(Workspace& workspace) {
    if (!std::exchange(hasRequestedTrust_, true) && !accessibility_.isTrusted())
        accessibility_.requestTrust();
    workspace.openUrl(settingsURL);
}

void AccessibilityPermission::startMonitoring() {
    if (pollTimer_ != TimerIdentifier::None) return;
    pollTimer_ = scheduler_.callEvery(pollInterval, [this] { refresh(); });
    observers_.push_back(accessibility_.onTrustListChanged([this] { scheduleRecheck(); }));
    observers_.push_back(application_.onDidBecomeActive([this] { refresh(); }));
}

void AccessibilityPermission::stopMonitoring() {
    scheduler_.cancelTimer(std::exchange(pollTimer_, TimerIdentifier::None));
    observers_.clear();
    pendingRecheck_.cancel();
}

void AccessibilityPermission::scheduleRecheck() { pendingRecheck_ = start(scheduler_, recheck()); }

Task<> AccessibilityPermission::recheck() {
    if (co_await sleepFor(listChangeRecheckDelay) == Wake::CutShort) co_return;
    refresh();
}

} // namespace tavrin
