#include "driver/command.h"
#include "driver/hand.h"
#include "driver/view_drags.h"

#include <array>

namespace mac_model {

using nlohmann::json;

namespace {

constexpr int clicksMax = 3;
constexpr double scrollMax = 100'000;

/// The target that shows the text; a right click prefers one with a context menu.
std::expected<Target, std::string> namedByText(const TargetFinder& targets, const std::string& text,
                                               MouseButton button) {
    if (button == MouseButton::Right)
        if (auto view = targets.withContextMenu(text)) return view;
    return targets.anything(text);
}

Outcome click(DrivenMac driven, Arguments& arguments) {
    const auto at = arguments.point("at");
    const auto bundle = arguments.reader().text("item");
    const auto index = arguments.reader().integer("index", {0, 10'000});
    const auto text = arguments.reader().text("text");
    const Click click{.button = arguments.button(),
                      .count = arguments.reader().integer("count", {1, clicksMax}).value_or(1),
                      .modifiers = arguments.modifiers()};
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    if (int{at.has_value()} + int{!bundle.empty()} + int{!text.empty()} != 1)
        return std::unexpected(arguments.sentence("say where with one of \"at\", \"item\" and \"text\""));
    if (index && bundle.empty()) return std::unexpected(arguments.sentence("\"index\" belongs to \"item\""));
    if (at) return clickAt(driven, *at, click);
    if (!bundle.empty()) return clickOn(driven, arguments, driven.targets.statusItem(bundle, index), click);
    return clickOn(driven, arguments, namedByText(driven.targets, text, click.button), click);
}

Outcome press(DrivenMac driven, Arguments& arguments) {
    const auto text = arguments.reader().text("text", Need::Required);
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    return clickOn(driven, arguments, driven.targets.control(text));
}

Outcome drag(DrivenMac driven, Arguments& arguments) {
    if (arguments.reader().has("text") || arguments.reader().has("onto")) return dragView(driven, arguments);
    const auto from = arguments.point("from", Need::Required);
    const auto to = arguments.point("to", Need::Required);
    const auto button = arguments.button();
    const auto modifiers = arguments.modifiers();
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    if (!isOnScreen(driven, *from) || !isOnScreen(driven, *to))
        return std::unexpected(arguments.sentence("no screen is there"));
    pressToDrag(driven, *from, button, modifiers);
    moveInSteps(driven, *to);
    driven.person.release(button);
    return json::object();
}

Outcome move(DrivenMac driven, Arguments& arguments) {
    const auto at = arguments.point("at", Need::Required);
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    if (!isOnScreen(driven, *at)) return std::unexpected(arguments.sentence("no screen is there"));
    driven.person.moveTo(*at);
    return json::object();
}

/// A button goes down, and stays so until "up".
Outcome down(DrivenMac driven, Arguments& arguments) {
    const auto at = arguments.point("at", Need::Required);
    const auto button = arguments.button();
    const auto modifiers = arguments.modifiers();
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    if (!isOnScreen(driven, *at)) return std::unexpected(arguments.sentence("no screen is there"));
    driven.person.moveTo(*at);
    driven.person.press(button, modifiers);
    return json::object();
}

Outcome up(DrivenMac driven, Arguments& arguments) {
    const auto at = arguments.point("at");
    const auto button = arguments.button();
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    if (at && isOnScreen(driven, *at)) driven.person.moveTo(*at);
    driven.person.release(button);
    return json::object();
}

Outcome scroll(DrivenMac driven, Arguments& arguments) {
    using Phase = tavrin::ScrollPhase;
    constexpr std::array<std::string_view, 6> phases{"none",    "mayBegin", "began",
                                                     "changed", "ended",    "cancelled"};
    constexpr std::array values{Phase::None,    Phase::MayBegin, Phase::Began,
                                Phase::Changed, Phase::Ended,    Phase::Cancelled};
    tavrin::ScrollSample sample;
    const auto dy = arguments.reader().number("dy", {-scrollMax, scrollMax}, Need::Required);
    sample.deltaX = arguments.reader().number("dx", {-scrollMax, scrollMax}).value_or(0);
    sample.phase = values[arguments.reader().choice("phase", phases, std::size_t{0})];
    sample.isMomentum = arguments.reader().flag("momentum", false);
    sample.isPrecise = arguments.reader().flag("precise", true);
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    sample.deltaY = *dy;
    return json{{"handled", driven.person.scroll(sample)}};
}

constexpr std::array commands{Command{"click", click},  Command{"press", press}, Command{"drag", drag},
                              Command{"move", move},    Command{"down", down},   Command{"up", up},
                              Command{"scroll", scroll}};

} // namespace

std::span<const Command> pointerCommands() { return commands; }

} // namespace mac_model
