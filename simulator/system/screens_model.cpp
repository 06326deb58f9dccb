#include "system/screens_model.h"

#include <algorithm>

namespace mac_model {

namespace {
constexpr Seconds noticeDelay{0.05};
constexpr Seconds vanishingTime{0.2};
} // namespace

ScreensModel::ScreensModel(VirtualScheduler& scheduler, std::vector<ScreenSpec> screens, const Faults& faults)
    : world_(scheduler)
    , screens_(std::move(screens))
    , faults_(faults) {}

void ScreensModel::set(std::vector<ScreenSpec> screens) {
    const auto change = ++changes_;
    if (!faults_.screensVanishBriefly) return show(std::move(screens));
    show({});
    world_.after(vanishingTime, [this, change, screens = std::move(screens)] {
        if (change == changes_) show(screens);
    });
}

/// Items keep their distance from the right edge.
Rect ScreensModel::onActiveBar(Rect onPrimary) const {
    if (activeIndex() == 0) return onPrimary;
    const auto& to = active()->frame;
    const double x = onPrimary.x + to.maxX() - primary()->frame.maxX();
    return {x, to.y, onPrimary.width, active()->menuBarHeight};
}

Point ScreensModel::onPrimaryBar(Point point) const {
    const auto holds = [&](const ScreenSpec& screen) { return screen.frame.contains(point); };
    const auto found = std::ranges::find_if(screens_, holds);
    if (found == screens_.end()) return point;
    const auto& frame = found->frame;
    return {point.x + primary()->frame.maxX() - frame.maxX(), point.y + primary()->frame.y - frame.y};
}

void ScreensModel::setUnseen(Unseen unseen) {
    if (unseen == unseen_) return;
    const bool wereShown = areShown();
    unseen_ = unseen;
    onUnseenChanged.emit();
    // Of a bar that hides by itself macOS tells nobody.
    if (areShown() != wereShown) world_.after(noticeDelay, [this] { onShownNotice.emit(); });
}

void ScreensModel::show(std::vector<ScreenSpec> screens) {
    if (screens == screens_) return;
    screens_ = std::move(screens);
    onChanged.emit();
    world_.after(noticeDelay, [this] { onNotice.emit(); });
}

} // namespace mac_model
