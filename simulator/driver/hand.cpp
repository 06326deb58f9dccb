#include "driver/hand.h"

#include "driver/json_shapes.h"

#include <algorithm>
#include <cmath>

namespace mac_model {

namespace {

constexpr Seconds clickTime{0.05}; // from down to up
constexpr double dragStep = 8;     // points
constexpr Seconds dragStepTime{0.008};

} // namespace

bool isOnScreen(const DrivenMac& driven, Point point) { return driven.targets.isOnScreen(point); }

void clickHere(const DrivenMac& driven, const Click& click) {
    const auto place = driven.content.pointer.at;
    driven.person.press(click.button, click.modifiers);
    driven.mac.scheduler().advance(clickTime);
    // Posted events may have taken the pointer away, and a hand goes back to what it has pressed.
    if (driven.content.pointer.at != place) driven.person.moveTo(place);
    driven.person.release(click.button);
}

Outcome clickAt(const DrivenMac& driven, Point point, const Click& click) {
    if (!isOnScreen(driven, point)) return std::unexpected("No screen is there.");
    driven.person.moveTo(point);
    for (int i = 0; i < click.count; ++i) {
        clickHere(driven, click);
        driven.mac.scheduler().advance(i + 1 < click.count ? clickTime : Seconds{0});
    }
    return nlohmann::json{{"at", pointShape(point)}};
}

Outcome clickOn(const DrivenMac& driven, const Arguments& arguments,
                const std::expected<Target, std::string>& target, const Click& click) {
    if (!target) return std::unexpected(arguments.sentence(target.error()));
    const auto place = driven.targets.placeToPress(*target);
    if (!place) return std::unexpected(arguments.sentence(place.error()));
    return clickAt(driven, *place, click);
}

void pressToDrag(const DrivenMac& driven, Point point, MouseButton button,
                 const std::vector<Modifier>& modifiers) {
    driven.person.moveTo(point);
    driven.person.press(button, modifiers);
    driven.mac.scheduler().advance(clickTime);
}

void moveInSteps(const DrivenMac& driven, Point to) {
    const auto from = driven.content.pointer.at;
    const int steps = std::max(1, static_cast<int>(std::hypot(to.x - from.x, to.y - from.y) / dragStep));
    for (int i = 1; i <= steps; ++i) {
        const double part = static_cast<double>(i) / steps;
        driven.person.moveTo({from.x + part * (to.x - from.x), from.y + part * (to.y - from.y)});
        driven.mac.scheduler().advance(dragStepTime);
    }
}

} // namespace mac_model
