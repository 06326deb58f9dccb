#include "driver/driver.h"

#include <algorithm>
#include <cmath>

// Rows and sections: what is dragged by its text, and named Accessibility actions.

namespace mac_model {

using nlohmann::json;
using tavrin::Point;
using tavrin::Seconds;

namespace {

constexpr double dragStep = 8; // points
constexpr Seconds dragStepTime{0.008};
constexpr Seconds edgeTime{0.1}; // spent at the edge of a Scroll before looking again
constexpr int approachesMax = 1000;

} // namespace

void Driver::moveInSteps(Point to) {
    const auto from = content_.pointer.at;
    const int steps = std::max(1, static_cast<int>(std::hypot(to.x - from.x, to.y - from.y) / dragStep));
    for (int i = 1; i <= steps; ++i) {
        const double part = static_cast<double>(i) / steps;
        person_.moveTo({from.x + part * (to.x - from.x), from.y + part * (to.y - from.y)});
        mac_.scheduler().advance(dragStepTime);
    }
}

Outcome Driver::dragView(Arguments& arguments) {
    const auto text = arguments.reader().text("text", Need::Required);
    const auto onto = arguments.reader().text("onto", Need::Required);
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    if (content_.menus.isOpen()) return std::unexpected(arguments.sentence("a menu is open"));
    const auto row = targets_.draggable(text);
    if (!row) return std::unexpected(arguments.sentence(row.error()));
    if (const auto section = targets_.dropTarget(onto); !section)
        return std::unexpected(arguments.sentence(section.error()));
    const auto from = targets_.placeToDrag(*row);
    if (!from) return std::unexpected(arguments.sentence(from.error()));
    person_.moveTo(*from);
    person_.press(MouseButton::Left, {});
    mac_.scheduler().advance(clickTime);
    const auto carried = carryOnto(onto);
    if (!carried) person_.pressKey("escape", {});
    person_.release(MouseButton::Left);
    if (!carried) return std::unexpected(arguments.sentence(carried.error()));
    return json::object();
}

/// The target is looked up anew after each way, because what is on the screen may change under the drag.
std::expected<void, std::string> Driver::carryOnto(const std::string& name) {
    for (int i = 0; i < approachesMax; ++i) {
        const auto target = targets_.dropTarget(name);
        if (!target) return std::unexpected(target.error());
        const auto place = targets_.placeToDrop(*target);
        if (!place) return std::unexpected(place.error());
        const auto at = content_.pointer.at;
        const bool isThere = std::hypot(place->point.x - at.x, place->point.y - at.y) < 1;
        if (isThere && place->isInSight) return {};
        if (!isThere) moveInSteps(place->point);
        if (!place->isInSight) mac_.scheduler().advance(edgeTime);
    }
    return std::unexpected("the drag never came to " + inQuotes(name));
}

Outcome Driver::perform(Arguments& arguments) {
    const auto text = arguments.reader().text("text", Need::Required);
    const auto action = arguments.reader().text("action", Need::Required);
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    const auto target = targets_.withAction(text, action);
    if (!target) return std::unexpected(arguments.sentence(target.error()));
    const auto* surface = content_.stack.find(target->surface);
    if (surface->deliver) surface->deliver(targets_.actionOf(*target, action));
    return json::object();
}

} // namespace mac_model
