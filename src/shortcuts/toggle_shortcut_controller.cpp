#include "shortcuts/toggle_shortcut_controller.h"

#include <utility>

namespace tavrin {

namespace {

const std::string inUse = "That shortcut is in use by another app";

} // namespace

ToggleShortcutController::ToggleShortcutController(ToggleShortcutStore store,
                                                   std::unique_ptr<HotKeyRegistering> registrar,
                                                   std::function<void()> onPress)
    : store_(store)
    , registrar_(std::move(registrar))
    , shortcut_(store_.load())
    , shortcutChanges_(shortcut_.subscribe([this](const auto&) { changed_.emit(); }))
    , messageChanges_(errorMessage_.subscribe([this](const auto&) { changed_.emit(); })) {
    registrar_->onPress = std::move(onPress);
    registerCurrentShortcut();
}

bool ToggleShortcutController::update(const HotKeyShortcut& to) {
    isSuspended_ = false;
    if (to != shortcut() && conflict)
        if (auto message = conflict(to)) return refuse(std::move(*message));
    registrar_->unregister();
    if (!registrar_->registerShortcut(to)) return refuse(inUse);
    isTaken_ = false;
    store_.save(to);
    shortcut_.set(to);
    errorMessage_.set(std::nullopt);
    return true;
}

void ToggleShortcutController::clear() {
    registrar_->unregister();
    isTaken_ = false;
    store_.save(std::nullopt);
    shortcut_.set(std::nullopt);
    errorMessage_.set(std::nullopt);
}

void ToggleShortcutController::suspend() {
    isSuspended_ = true;
    registrar_->unregister();
}

void ToggleShortcutController::resume() {
    if (!std::exchange(isSuspended_, false)) return;
    // A recording that was given up keeps the message of the attempt before it, unless it was about
    // this shortcut.
    const bool wasTaken = isTaken_;
    if (!registerCurrent())
        errorMessage_.set(inUse);
    else if (wasTaken)
        errorMessage_.set(std::nullopt);
}

bool ToggleShortcutController::registerCurrent() {
    isTaken_ = shortcut() && !registrar_->registerShortcut(*shortcut());
    return !isTaken_;
}

void ToggleShortcutController::registerCurrentShortcut() {
    errorMessage_.set(registerCurrent() ? std::nullopt : std::optional(inUse));
}

bool ToggleShortcutController::refuse(std::string message) {
    // Why the new shortcut can't be had matters more than whether the old one works again.
    (void)registerCurrent();
    errorMessage_.set(std::move(message));
    return false;
}

} // namespace tavrin
