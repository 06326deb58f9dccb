#include "driver/command.h"
#include "driver/commands/exact_actions.h"

#include <array>

namespace mac_model {

using nlohmann::json;

namespace {

Outcome perform(DrivenMac driven, Arguments& arguments) {
    if (arguments.reader().has("surface")) return performInSurface(driven, arguments);
    if (arguments.reader().has("statusItem")) return performOnItem(driven, arguments);
    if (arguments.reader().has("menuTitle")) return performOnTitle(driven, arguments);
    const auto text = arguments.reader().text("text", Need::Required);
    const auto action = arguments.reader().text("action", Need::Required);
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    const auto target = driven.targets.withAction(text, action);
    if (!target) return std::unexpected(arguments.sentence(target.error()));
    const auto* surface = driven.content.stack.find(target->surface);
    if (surface->deliver) surface->deliver(driven.targets.actionOf(*target, action));
    return json::object();
}

constexpr std::array commands{Command{"perform", perform}};

} // namespace

std::span<const Command> viewCommands() { return commands; }

} // namespace mac_model
