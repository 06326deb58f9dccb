#include "hiding/hiding_controller.h"

#include "concurrency/waits.h"
#include "platform/application.h"

#include <string>
#include <utility>

namespace tavrin {

HidingController::HidingController(const Platform& platform, MenuBarState& state, Settings& settings,
                                   MenuBarRuntimeMode mode, OwnStatusItems& items,
                                   StatusItemGeometryKeeper& geometry, ItemInventory& inventory, Hooks hooks)
    : platform_(platform)
    , state_(state)
    , settings_(settings)
    , mode_(mode)
    , items_(items)
    , geometry_(geometry)
    , inventory_(inventory)
    , hooks_(std::move(hooks)) {}

void HidingController::toggleCollapse() {
    if (state_.isCollapsed.get()) {
        expand(Persist::Yes);
    } else {
        requestCollapse(Persist::Yes, OnFailure::ShowConfiguration);
    }
}

SkerrowPolicy HidingController::collapsePolicy() const {
    return SkerrowPolicy(state_.detectedItems.get(), state_.hiddenItemIdentifiers.get(),
                         platform_.application.bundleIdentifier());
}

std::optional<std::string> HidingController::reasonNotToCollapse() const {
    if (!items_.validControlGlyphFrame() || !items_.isSpacerLeftOfControl()) {
        return "Tavrin couldn’t hide items because macOS placed its control outside the menu bar’s "
               "right-hand status "
               "area. The app will repair the layout before the next attempt.";
    }
    if (!state_.hasCompletedScan) {
        return "Tavrin needs a current item scan before it can hide anything. Grant Accessibility access, "
               "then "
               "refresh.";
    }
    const auto count = collapsePolicy().pendingMoves().size();
    if (count == 0) return std::nullopt;
    return "Couldn’t hide yet: " + std::to_string(count) + (count == 1 ? " item is" : " items are") +
           " still on the visible side. Apply the configuration first.";
}

bool HidingController::collapse(Persist persist) {
    if (mode_ == MenuBarRuntimeMode::nativeVisibility) return performNativeCollapse();
    if (auto reason = reasonNotToCollapse()) {
        state_.errorMessage.set(std::move(reason));
        return false;
    }
    items_.setSpacerLength(collapsedSpacerLength(platform_.screens.screens()));
    state_.isCollapsed.set(true);
    if (persist == Persist::Yes) settings_.setBoolean(Settings::shouldStartCollapsedKey, true);
    verifyControl();
    return true;
}

bool HidingController::performNativeCollapse() {
    state_.errorMessage.set(
        "This macOS build does not expose the menu bar visibility interface Tavrin relies on.");
    return false;
}

void HidingController::expand(Persist persist) {
    geometry_.abandonVerification();
    items_.setSpacerLength(0);
    state_.isCollapsed.set(false);
    state_.lastExpandUptime = platform_.scheduler.now();
    if (persist == Persist::Yes) settings_.setBoolean(Settings::shouldStartCollapsedKey, false);
}

void HidingController::verifyControl() {
    geometry_.verifyOwnControlRemainsVisible(
        [this](std::string message) { restoreFullMenuBar(std::move(message)); });
}

void HidingController::restoreFullMenuBar(std::string message) {
    expand(Persist::No);
    state_.errorMessage.set(std::move(message));
    hooks_.showFailure();
}

void HidingController::requestCollapse(Persist persist, OnFailure onFailure) {
    hooks_.cancelPendingConfiguration();
    const auto request = collapseRequests_.begin();
    requestTask_ = start(platform_.scheduler, performRequest(request, persist, onFailure));
}

void HidingController::cancelRequests() {
    collapseRequests_.clear();
    requestTask_.cancel();
}

Task<bool> HidingController::prepareLayout() {
    if (mode_ == MenuBarRuntimeMode::nativeVisibility) co_return true;
    if (!co_await geometry_.ensureExpandedStatusItemGeometry()) co_return false;
    co_await inventory_.refreshItemsNow();
    co_return true;
}

Task<> HidingController::performRequest(int request, Persist persist, OnFailure onFailure) {
    const bool isLaidOut = co_await prepareLayout();
    if (!collapseRequests_.isPending(request) || co_await isCancelled()) co_return;
    const bool isDone = isLaidOut && collapse(persist);
    collapseRequests_.finish(request);
    if (!isDone && onFailure == OnFailure::ShowConfiguration) hooks_.showFailure();
}

void HidingController::adaptToScreens() {
    if (!state_.isCollapsed.get() || mode_ == MenuBarRuntimeMode::nativeVisibility) return;
    items_.setSpacerLength(collapsedSpacerLength(platform_.screens.screens()));
    verifyControl();
}

void HidingController::restoreForTermination() {
    cancelRequests();
    geometry_.abandonVerification();
    items_.setSpacerLength(0);
}

} // namespace tavrin
