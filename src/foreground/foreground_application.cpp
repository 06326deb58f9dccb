#include "foreground/foreground_application.h"

#include "concurrency/waits.h"

namespace tavrin {

ForegroundApplication::ForegroundApplication(Scheduler& scheduler, Application& system, Workspace& workspace)
    : scheduler_(scheduler)
    , system_(system)
    , workspace_(workspace) {
    // A window may be closed before macOS has granted what was asked for its sake.
    observations_.push_back(system.onDidBecomeActive([this] { keysReleased(); }));
    observations_.push_back(system.onKeysReleased([this] { keysReleased(); }));
}

void ForegroundApplication::activate() {
    system_.activate();
    insistence_ = start(scheduler_, insist());
}

Task<> ForegroundApplication::insist() {
    if (co_await sleepFor(patience) == Wake::CutShort || system_.isActive()) co_return;
    system_.activateIgnoringOthers();
}

void ForegroundApplication::showAboutPanel() {
    activate();
    system_.showAboutPanel();
}

void ForegroundApplication::keysReleased() {
    if (system_.isActive() && !system_.takesKeys()) givingBack_ = start(scheduler_, giveKeyboardBack());
}

Task<> ForegroundApplication::giveKeyboardBack() {
    if (co_await sleepFor(keyboardWait) == Wake::CutShort) co_return;
    if (!system_.isActive() || system_.takesKeys()) co_return;
    if (const auto other = workspace_.menuBarOwner()) workspace_.activate(*other);
}

} // namespace tavrin
