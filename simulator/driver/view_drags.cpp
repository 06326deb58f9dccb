#include "driver/view_drags.h"

#include "driver/hand.h"
#include "vocabulary/vocabulary.h"

#include <cmath>

namespace mac_model {

using nlohmann::json;

namespace {

constexpr Seconds edgeTime{0.1}; // spent at the edge of a Scroll before looking again
constexpr int approachesMax = 1000;

/// The target is looked up anew after each way, because what is on the screen may change under the drag.
std::expected<void, std::string> carryOnto(const DrivenMac& driven, const std::string& name) {
    for (int i = 0; i < approachesMax; ++i) {
        const auto target = driven.targets.dropTarget(name);
        if (!target) return std::unexpected(target.error());
        const auto place = driven.targets.placeToDrop(*target);
        if (!place) return std::unexpected(place.error());
        const auto at = driven.content.pointer.at;
        const bool isThere = std::hypot(place->point.x - at.x, place->point.y - at.y) < 1;
        if (isThere && place->isInSight) return {};
        if (!isThere) moveInSteps(driven, place->point);
        if (!place->isInSight) driven.mac.scheduler().advance(edgeTime);
    }
    return std::unexpected("the drag never came to " + inQuotes(name));
}

} // namespace

Outcome dragView(DrivenMac driven, Arguments& arguments) {
    const auto text = arguments.reader().text("text", Need::Required);
    const auto onto = arguments.reader().text("onto", Need::Required);
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    if (driven.content.menus.isOpen()) return std::unexpected(arguments.sentence("a menu is open"));
    const auto row = driven.targets.draggable(text);
    if (!row) return std::unexpected(arguments.sentence(row.error()));
    if (const auto section = driven.targets.dropTarget(onto); !section)
        return std::unexpected(arguments.sentence(section.error()));
    const auto from = driven.targets.placeToDrag(*row);
    if (!from) return std::unexpected(arguments.sentence(from.error()));
    pressToDrag(driven, *from, MouseButton::Left);
    const auto carried = carryOnto(driven, onto);
    if (!carried) driven.person.pressKey("escape", {});
    driven.person.release(MouseButton::Left);
    if (!carried) return std::unexpected(arguments.sentence(carried.error()));
    return json::object();
}

} // namespace mac_model
