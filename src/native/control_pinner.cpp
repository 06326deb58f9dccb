#include "native/control_pinner.h"

#include "concurrency/wait_until.h"
#include "discovery/menu_bar_screen_geometry.h"
#include "gestures/command_drag.h"
#include "platform/accessibility.h"
#include "platform/application.h"
#include "platform/screens.h"

#include <algorithm>

namespace tavrin {

class ControlPinner::DragSign {
  public:
    explicit DragSign(ControlPinner& pinner) : pinner_(pinner) { pinner_.isDragging_ = true; }

    DragSign(const DragSign&) = delete;
    DragSign& operator=(const DragSign&) = delete;

    ~DragSign() {
        pinner_.isDragging_ = false;
        pinner_.lastDrag_ = pinner_.platform_.scheduler.now();
    }

  private:
    ControlPinner& pinner_;
};

void ControlPinner::pinLater() { task_ = start(platform_.scheduler, pinWhenSettled()); }

Task<> ControlPinner::pinWhenSettled() {
    if (co_await sleepFor(settleWait) == Wake::CutShort || !isFree()) co_return;
    (void)co_await pin();
}

/// The drag takes the pointer away from whatever the user does with Tavrin.
bool ControlPinner::isFree() const {
    return !activity_.isApplyingConfiguration.get() && !activity_.isConfigureOpen.get() &&
           !activity_.isLiftedForClock.get() && !platform_.application.takesKeys();
}

bool ControlPinner::mayPost() const {
    return !isOff_ && platform_.accessibility.isTrusted() && items_.isBarVisible() && items_.control();
}

Task<bool> ControlPinner::pin() {
    if (!mayPost()) co_return false;
    co_await inventory_.refreshItemsNow();
    if (co_await isCancelled() || !inventory_.hasCompletedScan()) co_return false;
    const auto to = destination();
    if (!to) co_return leads();
    co_await drag(*to);
    const auto waited = co_await waitUntil(
        platform_.scheduler, [this] { return leads(); }, lookInterval, lookInterval * looksMax);
    if (waited == Waited::TimedOut) isOff_ = true; // a drag without effect isn't made again
    co_return waited == Waited::Met;
}

Task<> ControlPinner::drag(Point destination) {
    const auto frame = items_.controlFrame();
    if (!frame) co_return;
    const DragSign sign(*this);
    (void)co_await postCommandDrag(
        platform_.events,
        {.from = frame->middle(), .to = destination, .usesHostedMenuBar = UsesHostedMenuBar::Yes});
}

bool ControlPinner::takesPress() {
    const bool isOurs =
        isDragging_ || (lastDrag_ >= Seconds{0} && platform_.scheduler.now() - lastDrag_ <= pressDelayMax);
    isOff_ = isOff_ || isOurs;
    return isOurs;
}

std::optional<Point> ControlPinner::destination() const {
    const auto control = items_.controlFrame();
    return control ? NativeControlPinning::dragDestination(*control, itemFrames(), range()) : std::nullopt;
}

bool ControlPinner::leads() const {
    const auto control = items_.controlFrame();
    return control && NativeControlPinning::leads(*control, itemFrames(), range());
}

std::vector<Rect> ControlPinner::itemFrames() const {
    std::vector<Rect> frames;
    for (const auto& item : inventory_.items().get()) frames.push_back(item.snapshot.frame);
    return frames;
}

/// The status area of the screen on which the control is; nothing fits in where it is on none.
NativeControlPinning::HorizontalRange ControlPinner::range() const {
    const auto control = items_.controlFrame().value_or(Rect{});
    for (const auto& screen : platform_.screens.screens()) {
        const auto area = MenuBarScreenGeometry::statusArea(screen);
        if (MenuBarScreenGeometry::menuBar(screen).contains(control.middle()))
            return {area.minX(), area.maxX()};
    }
    return {0, 0};
}

} // namespace tavrin
