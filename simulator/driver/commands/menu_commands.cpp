#include "driver/command.h"
#include "driver/hand.h"
#include "vocabulary/vocabulary.h"

#include <algorithm>
#include <array>

namespace mac_model {

using nlohmann::json;

namespace {

constexpr std::size_t menuDepthMax = 32;

std::expected<void, std::string> choosePath(const DrivenMac& driven, const std::vector<std::string>& titles) {
    for (std::size_t depth = 0; depth < titles.size(); ++depth) {
        const auto menus = driven.content.menus.menus();
        if (menus.size() <= depth)
            return std::unexpected(depth == 0 ? "no menu opened" : "that entry has no submenu");
        const auto entry = driven.targets.menuEntry(menus[depth], titles[depth]);
        if (!entry) return std::unexpected(entry.error());
        const bool isLast = depth + 1 == titles.size();
        if (const auto place = driven.targets.placeToPress(*entry)) driven.person.moveTo(*place);
        if (isLast && driven.content.menus.menus().size() > depth + 1)
            return std::unexpected(inQuotes(titles[depth]) +
                                   " opens a submenu; name one of its entries, too");
    }
    clickHere(driven);
    driven.mac.scheduler().advance(Seconds{0});
    return {};
}

/// Titles from the menu's owner down to an entry.
std::vector<std::string> pathOf(Arguments& arguments) {
    std::vector<std::string> path;
    for (const auto& step : arguments.reader().list("path", menuDepthMax, Need::Required)) {
        if (!step.is_string())
            arguments.reader().refuse("path", "must hold texts only");
        else
            path.push_back(step.get<std::string>());
    }
    return path;
}

/// A press on the program's item then closes the popover, and need not open a menu.
bool isUnderPopover(const DrivenMac& driven, StatusItemIdentifier item) {
    return std::ranges::any_of(driven.content.stack.backToFront(), [&](const auto& surface) {
        return surface->anchor == item && surface->kind == SurfaceKind::Popover &&
               surface->outsidePress == OutsidePress::Closes;
    });
}

Outcome menu(DrivenMac driven, Arguments& arguments) {
    auto path = pathOf(arguments);
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    if (path.size() < 2)
        return std::unexpected(arguments.sentence("\"path\" names an owner and at least one entry"));
    const auto owner = driven.targets.menuOwner(path.front());
    if (!owner) return std::unexpected(arguments.sentence(owner.error()));
    const auto* item = driven.mac.statusItems().find(owner->item);
    const bool isProgram = item && item->origin == ItemOrigin::Program;
    if (isProgram && isUnderPopover(driven, owner->item))
        return std::unexpected(
            arguments.sentence("a popover at that item is open, which the press would close"));
    const bool opensByRightClick = isProgram || owner->kind == Target::Kind::View;
    const auto place = driven.targets.placeToPress(*owner);
    if (!place) return std::unexpected(arguments.sentence(place.error()));
    driven.content.menus.close();
    auto clicked = clickAt(driven, *place, {opensByRightClick ? MouseButton::Right : MouseButton::Left});
    if (!clicked) return clicked;
    path.erase(path.begin());
    if (const auto chosen = choosePath(driven, path); !chosen) {
        driven.content.menus.close();
        return std::unexpected(arguments.sentence(chosen.error()));
    }
    return json::object();
}

constexpr std::array commands{Command{"menu", menu}};

} // namespace

std::span<const Command> menuCommands() { return commands; }

} // namespace mac_model
