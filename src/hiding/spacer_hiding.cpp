#include "hiding/spacer_hiding.h"

#include "hiding/skerrow_policy.h"
#include "platform/screens.h"

#include <cstddef>
#include <utility>

namespace tavrin {

namespace {

constexpr const char* controlOutsideStatusArea =
    "Tavrin couldn’t hide items because macOS placed its control outside the menu bar’s right-hand status "
    "area. The app will repair the layout before the next attempt.";
constexpr const char* noCurrentScan =
    "Tavrin needs a current item scan before it can hide anything. Grant Accessibility access, then refresh.";
constexpr const char* barNotVisible =
    "Tavrin can’t move items while the menu bar isn’t visible. Leave full screen, or choose “Never” for "
    "“Automatically hide and show the menu bar” in System Settings, then apply again.";

std::string stillVisible(std::size_t count) {
    return "Couldn’t hide yet: " + std::to_string(count) + (count == 1 ? " item is" : " items are") +
           " still on the visible side. Apply the configuration first.";
}

} // namespace

SpacerHiding::SpacerHiding(const Platform& platform, OwnStatusItems& items, ItemInventory& inventory,
                           const HiddenItems& hiddenItems, FailureMessage& failure)
    : platform_(platform)
    , items_(items)
    , inventory_(inventory)
    , hiddenItems_(hiddenItems)
    , geometry_(platform, items, failure)
    , controlCheck_(platform.scheduler, items) {}

Task<bool> SpacerHiding::prepare() {
    if (!co_await ensureLayout()) co_return false;
    co_await inventory_.refreshItemsNow();
    co_return true;
}

std::optional<std::string> SpacerHiding::refusal() const {
    const bool isInPlace = items_.validControlGlyphFrame() && items_.isSpacerLeftOfControl();
    const bool isUnseen = !isInPlace && !items_.isBarVisible();
    if (!isInPlace && !isUnseen) return controlOutsideStatusArea;
    if (!inventory_.hasCompletedScan()) return noCurrentScan;
    if (isUnseen) return std::nullopt;
    const auto count = hiddenItems_.policyFor(inventory_.items().get()).pendingMoves().size();
    return count == 0 ? std::nullopt : std::optional(stillVisible(count));
}

std::optional<std::string> SpacerHiding::obstacleToPlacing() const {
    return items_.controlSight() == ControlSight::barNotVisible ? std::optional<std::string>(barNotVisible)
                                                                : std::nullopt;
}

void SpacerHiding::hideNow() { items_.setSpacerLength(collapsedSpacerLength(platform_.screens.screens())); }

/// There is nothing to wait for: the spacer is long at once.
Task<std::expected<void, std::string>> SpacerHiding::confirmHidden() {
    co_return std::expected<void, std::string>();
}

void SpacerHiding::didHide() {
    controlCheck_.verify([this](const std::string& message) { mustReveal.emit(message); });
}

void SpacerHiding::reveal() {
    controlCheck_.abandon();
    items_.setSpacerLength(0);
}

void SpacerHiding::adaptToScreens() {
    hideNow();
    didHide();
}

} // namespace tavrin
