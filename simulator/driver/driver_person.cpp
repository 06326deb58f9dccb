#include "base/unicode.h"
#include "driver/driver.h"
#include "driver/json_shapes.h"

#include <algorithm>
#include <cmath>

namespace mac_model {

using nlohmann::json;
using tavrin::Point;
using tavrin::Seconds;

namespace {

constexpr int clicksMax = 3;
constexpr double scrollMax = 100'000;
constexpr std::size_t menuDepthMax = 32;

} // namespace

bool Driver::isOnScreen(Point point) const {
    return std::ranges::any_of(mac_.screens().screens(),
                               [&](const auto& s) { return s.frame.contains(point); });
}

Outcome Driver::clickAt(Point point, MouseButton button, int count, const std::vector<Modifier>& modifiers) {
    if (!isOnScreen(point)) return std::unexpected("No screen is there.");
    person_.moveTo(point);
    for (int i = 0; i < count; ++i) {
        person_.press(button, modifiers);
        mac_.scheduler().advance(clickTime);
        person_.release(button);
        mac_.scheduler().advance(i + 1 < count ? clickTime : Seconds{0});
    }
    return json{{"at", pointShape(point)}};
}

Outcome Driver::click(Arguments& arguments) {
    const auto at = arguments.point("at");
    const auto bundle = arguments.reader().text("item");
    const auto index = arguments.reader().integer("index", {0, 10'000});
    const auto text = arguments.reader().text("text");
    const auto button = arguments.button();
    const int count = arguments.reader().integer("count", {1, clicksMax}).value_or(1);
    const auto modifiers = arguments.modifiers();
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    if (int{at.has_value()} + int{!bundle.empty()} + int{!text.empty()} != 1)
        return std::unexpected(arguments.sentence("say where with one of \"at\", \"item\" and \"text\""));
    if (index && bundle.empty()) return std::unexpected(arguments.sentence("\"index\" belongs to \"item\""));
    if (at) return clickAt(*at, button, count, modifiers);
    auto target = bundle.empty() ? targets_.anything(text) : targets_.statusItem(bundle, index);
    if (button == MouseButton::Right && bundle.empty())
        if (auto view = targets_.withContextMenu(text)) target = std::move(view);
    if (!target) return std::unexpected(arguments.sentence(target.error()));
    const auto place = targets_.placeToPress(*target);
    if (!place) return std::unexpected(arguments.sentence(place.error()));
    return clickAt(*place, button, count, modifiers);
}

Outcome Driver::press(Arguments& arguments) {
    const auto text = arguments.reader().text("text", Need::Required);
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    const auto target = targets_.control(text);
    if (!target) return std::unexpected(arguments.sentence(target.error()));
    const auto place = targets_.placeToPress(*target);
    if (!place) return std::unexpected(arguments.sentence(place.error()));
    return clickAt(*place, MouseButton::Left, 1, {});
}

Outcome Driver::menu(Arguments& arguments) {
    std::vector<std::string> path;
    for (const auto& step : arguments.reader().list("path", menuDepthMax, Need::Required)) {
        if (!step.is_string())
            arguments.reader().refuse("path", "must hold texts only");
        else
            path.push_back(step.get<std::string>());
    }
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    if (path.size() < 2)
        return std::unexpected(arguments.sentence("\"path\" names an owner and at least one entry"));
    const auto owner = targets_.menuOwner(path.front());
    if (!owner) return std::unexpected(arguments.sentence(owner.error()));
    const auto* item = mac_.statusItems().find(owner->item);
    const bool isProgram = item && item->origin == ItemOrigin::Program;
    const bool opensByRightClick = isProgram || owner->kind == Target::Kind::View;
    const auto place = targets_.placeToPress(*owner);
    if (!place) return std::unexpected(arguments.sentence(place.error()));
    content_.menus.close();
    auto clicked = clickAt(*place, opensByRightClick ? MouseButton::Right : MouseButton::Left, 1, {});
    if (!clicked) return clicked;
    path.erase(path.begin());
    if (const auto chosen = choosePath(path); !chosen) {
        content_.menus.close();
        return std::unexpected(arguments.sentence(chosen.error()));
    }
    return json::object();
}

std::expected<void, std::string> Driver::choosePath(const std::vector<std::string>& titles) {
    for (std::size_t depth = 0; depth < titles.size(); ++depth) {
        const auto menus = content_.menus.menus();
        if (menus.size() <= depth)
            return std::unexpected(depth == 0 ? "no menu opened" : "that entry has no submenu");
        const auto entry = targets_.menuEntry(menus[depth], titles[depth]);
        if (!entry) return std::unexpected(entry.error());
        const bool isLast = depth + 1 == titles.size();
        person_.moveTo(entry->frame.middle());
        if (isLast && content_.menus.menus().size() > depth + 1)
            return std::unexpected(inQuotes(titles[depth]) +
                                   " opens a submenu; name one of its entries, too");
    }
    person_.press(MouseButton::Left, {});
    mac_.scheduler().advance(clickTime);
    person_.release(MouseButton::Left);
    mac_.scheduler().advance(Seconds{0});
    return {};
}

Outcome Driver::drag(Arguments& arguments) {
    if (arguments.reader().has("text") || arguments.reader().has("onto")) return dragView(arguments);
    const auto from = arguments.point("from", Need::Required);
    const auto to = arguments.point("to", Need::Required);
    const auto button = arguments.button();
    const auto modifiers = arguments.modifiers();
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    if (!isOnScreen(*from) || !isOnScreen(*to))
        return std::unexpected(arguments.sentence("no screen is there"));
    person_.moveTo(*from);
    person_.press(button, modifiers);
    mac_.scheduler().advance(clickTime);
    moveInSteps(*to);
    person_.release(button);
    return json::object();
}

Outcome Driver::move(Arguments& arguments) {
    const auto at = arguments.point("at", Need::Required);
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    if (!isOnScreen(*at)) return std::unexpected(arguments.sentence("no screen is there"));
    person_.moveTo(*at);
    return json::object();
}

/// A button goes down, and stays so until "up".
Outcome Driver::down(Arguments& arguments) {
    const auto at = arguments.point("at", Need::Required);
    const auto button = arguments.button();
    const auto modifiers = arguments.modifiers();
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    if (!isOnScreen(*at)) return std::unexpected(arguments.sentence("no screen is there"));
    person_.moveTo(*at);
    person_.press(button, modifiers);
    return json::object();
}

Outcome Driver::up(Arguments& arguments) {
    const auto at = arguments.point("at");
    const auto button = arguments.button();
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    if (at && isOnScreen(*at)) person_.moveTo(*at);
    person_.release(button);
    return json::object();
}

Outcome Driver::scroll(Arguments& arguments) {
    constexpr std::array<std::string_view, 6> phases{"none",    "mayBegin", "began",
                                                     "changed", "ended",    "cancelled"};
    const auto dy = arguments.reader().number("dy", {-scrollMax, scrollMax}, Need::Required);
    (void)arguments.reader().number("dx", {-scrollMax, scrollMax});
    (void)arguments.reader().choice("phase", phases, std::size_t{0});
    (void)arguments.reader().flag("momentum", false);
    (void)arguments.reader().flag("precise", true);
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    return json{{"handled", person_.scroll(*dy)}};
}

Outcome Driver::key(Arguments& arguments) {
    const auto key = arguments.reader().text("key", Need::Required);
    const auto modifiers = arguments.modifiers();
    const bool isKnown = tavrin::countOfCharacters(key) == 1 || isNamedKey(key);
    if (!isKnown) arguments.reader().refuse("key", "must be one character, or one of " + namesOfKeys());
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    return json{{"handled", person_.pressKey(key, modifiers)}};
}

Outcome Driver::type(Arguments& arguments) {
    (void)arguments.reader().text("text", Need::Required);
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    return std::unexpected(
        arguments.sentence("no text field has the keyboard; nothing on this Mac takes text yet"));
}

} // namespace mac_model
