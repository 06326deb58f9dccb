#include "applications/notification_center.h"

#include "screen/placement.h"
#include "views/laid_out_view.h"
#include "views/view_builders.h"

#include <utility>

namespace mac_model {

namespace {

constexpr double width = 360;
constexpr double margin = 10; // to the screen's edges

Rect frameOn(const ScreenSpec& screen) {
    const double top = screen.frame.y + screen.menuBarHeight + margin;
    return {screen.frame.maxX() - width - margin, top, width, screen.frame.maxY() - margin - top};
}

View content() {
    return tavrin::column({tavrin::text("Notification Center", {.style = TextStyle::Heading}),
                           tavrin::text("No notifications", {.tone = Tone::Secondary})},
                          {.padding = 14, .width = width});
}

} // namespace

bool NotificationCenter::isOpenedBy(const StatusItemRecord& item) const {
    return behaviour_.hasHostedBar() && item.isClock();
}

void NotificationCenter::toggle(const StatusItemRecord& clock) {
    if (visibility_.inForce()) return;
    if (stack_.find(shown_)) return close();
    const auto* owner = process();
    if (owner && owner->application.responding) open(&clock);
}

const Process* NotificationCenter::process() const {
    const auto running = processes_.withBundle("com.apple.notificationcenterui");
    return running.empty() || screens_.screens().empty() ? nullptr : processes_.find(running.front());
}

ScreenSpec NotificationCenter::screenOf(const StatusItemRecord* clock) const {
    if (!clock || !clock->pressedAt) return *screens_.primary();
    return screenFor(screens_.screens(), *clock->pressedAt);
}

void NotificationCenter::open(const StatusItemRecord* clock) {
    if (stack_.find(shown_) || !canOpen()) return;
    Surface surface;
    surface.kind = SurfaceKind::Panel;
    surface.owner = process()->identifier;
    surface.title = "Notification Center";
    surface.frame = frameOn(screenOf(clock));
    surface.outsidePress = OutsidePress::Closes;
    if (clock) surface.anchor = clock->identifier;
    surface.content = laidOut(content(), surface.frame);
    shown_ = stack_.add(std::move(surface)).identifier;
}

void NotificationCenter::close() {
    if (stack_.find(shown_)) stack_.dismiss(shown_);
}

} // namespace mac_model
