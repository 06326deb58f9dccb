#include "driver/commands/exact_actions.h"

#include "driver/surface_tree.h"
#include "screen/menu_layout.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace mac_model {

using nlohmann::json;

namespace {

constexpr NumberRange identifiers{0, 1e15};
constexpr NumberRange positionRange{0, 100'000};
constexpr std::size_t depthMax = 64;
constexpr std::array<std::string_view, 2> itemActions{"AXPress", "AXShowMenu"};

const std::string notThere = "nothing stands there any more";
const std::string waits = "an alert of its application waits for an answer";

bool isPosition(const json& value) {
    if (!value.is_number_integer()) return false;
    const auto number = value.get<double>();
    return number >= positionRange.least && number <= positionRange.most;
}

std::vector<std::size_t> positionsIn(Arguments& arguments) {
    std::vector<std::size_t> positions;
    for (const auto& position : arguments.reader().list("path", depthMax, Need::Required)) {
        if (isPosition(position))
            positions.push_back(position.get<std::size_t>());
        else
            arguments.reader().refuse("path", "must hold positions only");
    }
    return positions;
}

std::uint64_t identifierIn(Arguments& arguments, std::string_view key) {
    return static_cast<std::uint64_t>(
        arguments.reader().number(key, identifiers, Need::Required).value_or(0));
}

Outcome performInMenu(MenuTracking& menus, const Arguments& arguments, const Surface& menu, std::size_t row,
                      const std::string& text) {
    const auto surfaces = menus.menus();
    const auto depth = std::ranges::find(surfaces, menu.identifier) - surfaces.begin();
    const auto open = menus.openPath();
    const bool isThere = row < menu.rows.size() && (text.empty() || menu.rows[row].item.title == text);
    if (!isThere || depth > std::ssize(open)) return std::unexpected(arguments.sentence(notThere));
    MenuPath path(open.begin(), open.begin() + depth);
    path.push_back(row);
    const auto& entry = menu.rows[row].item;
    if (!entry.items.empty())
        menus.openSubmenuAt(path);
    else if (isChoosable(entry))
        menus.choose(path);
    else
        return std::unexpected(arguments.sentence("that entry is disabled"));
    return json::object();
}

} // namespace

Outcome performInSurface(DrivenMac driven, Arguments& arguments) {
    const auto identifier = SurfaceIdentifier{identifierIn(arguments, "surface")};
    const auto positions = positionsIn(arguments);
    const auto text = arguments.reader().text("text");
    const auto action = arguments.reader().text("action", Need::Optional, "AXPress");
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    const auto* surface = driven.content.stack.find(identifier);
    if (!surface) return std::unexpected(arguments.sentence("that surface has gone"));
    if (driven.content.stack.alertBefore(*surface)) return std::unexpected(arguments.sentence(waits));
    if (isCloseButton(*surface, positions)) {
        driven.content.stack.dismiss(identifier);
        return json::object();
    }
    if (surface->kind == SurfaceKind::Menu && positions.size() == 1)
        return performInMenu(driven.content.menus, arguments, *surface, positions.front(), text);
    const auto path = viewPathOf(*surface, positions);
    const auto* laidOut = path ? viewAt(surface->content, *path) : nullptr;
    if (!laidOut || (!text.empty() && textOf(*laidOut) != text))
        return std::unexpected(arguments.sentence(notThere));
    auto work = driven.targets.actionOf({.surface = identifier, .path = *path}, action);
    if (!work) return std::unexpected(arguments.sentence("it has no action " + inQuotes(action) + " now"));
    if (surface->deliver) surface->deliver(std::move(work));
    return json::object();
}

Outcome performOnItem(DrivenMac driven, Arguments& arguments) {
    const auto identifier = StatusItemIdentifier{identifierIn(arguments, "statusItem")};
    const auto action = arguments.reader().choice("action", itemActions, std::size_t{0});
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    const auto* item = driven.mac.statusItems().find(identifier);
    if (!item) return std::unexpected(arguments.sentence("that item has gone"));
    if (!item->spec.enabled) return std::unexpected(arguments.sentence("that item is disabled"));
    if (driven.content.stack.alertOf(item->owner)) return std::unexpected(arguments.sentence(waits));
    const bool isProgram = item->origin == ItemOrigin::Program;
    if (isProgram) driven.content.menus.close();
    if (!isProgram)
        driven.content.statusItems.toggle(identifier);
    else if (action == 0)
        driven.mac.statusItems().press(identifier, MouseButton::Left);
    else if (!driven.mac.statusItems().perform(identifier, "Show Menu"))
        return std::unexpected(arguments.sentence("that item has no action \"Show Menu\""));
    return json::object();
}

Outcome performOnTitle(DrivenMac driven, Arguments& arguments) {
    const auto number = arguments.reader().integer("menuTitle", positionRange, Need::Required);
    const auto index = arguments.reader().integer("screen", positionRange).value_or(0);
    (void)arguments.reader().choice("action", std::array<std::string_view, 1>{"AXPress"}, std::size_t{0});
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    const auto& screens = driven.mac.screens().screens();
    if (index >= std::ssize(screens)) return std::unexpected(arguments.sentence("there is no such screen"));
    const auto titles = driven.content.applicationMenus.titlesOn(screens[static_cast<std::size_t>(index)]);
    if (*number >= std::ssize(titles)) return std::unexpected(arguments.sentence("there is no such title"));
    const auto title = static_cast<std::size_t>(*number);
    driven.content.applicationMenus.toggle(title, titles[title].frame.middle());
    return json::object();
}

} // namespace mac_model
