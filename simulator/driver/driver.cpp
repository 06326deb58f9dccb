#include "driver/driver.h"

#include "driver/json_shapes.h"
#include "vocabulary/vocabulary.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <span>
#include <utility>

namespace mac_model {

using nlohmann::json;

namespace {

std::map<std::string_view, Command> commandsByName() {
    std::map<std::string_view, Command> named;
    for (const auto commands : {pointerCommands(), keyboardCommands(), menuCommands(), viewCommands(),
                                timeCommands(), reportCommands(), worldCommands()})
        for (const auto& command : commands) named.emplace(command.name, command);
    return named;
}

/// Why the person can't do anything now.
std::optional<std::string> obstacle(const Unseen& unseen) {
    if (unseen.isDisplayAsleep) return "The display is asleep.";
    if (unseen.isScreenLocked) return "The screen is locked.";
    return std::nullopt;
}

bool isOfPerson(std::string_view command) {
    const auto has = [&](std::span<const Command> commands) {
        return std::ranges::find(commands, command, &Command::name) != commands.end();
    };
    return has(pointerCommands()) || has(keyboardCommands()) || has(menuCommands()) || has(viewCommands());
}

} // namespace

Driver::Driver(Mac& mac)
    : mac_(mac)
    , content_(mac.content())
    , person_(mac.person())
    , targets_(mac, mac.content())
    , commands_(commandsByName()) {}

json Driver::refusal(std::string sentence) const { return {{"ok", false}, {"error", onOneLine(sentence)}}; }

std::string Driver::handleLine(std::string_view line) {
    const auto inOneLine = [](const json& reply) {
        return reply.dump(-1, ' ', false, json::error_handler_t::replace);
    };
    if (line.size() > lineBytesMax) return inOneLine(refusal("The line is longer than 1 MiB."));
    const auto parsed = parseStrictJson(line);
    if (!parsed) return inOneLine(refusal("The line is no JSON command: " + describe(parsed.error()) + "."));
    return inOneLine(command(*parsed));
}

json Driver::command(const json& given) {
    // Failures are reported as values; this is for exceptions that nobody expects, such as memory running
    // out.
    try {
        auto outcome = run(given);
        mac_.scheduler().advance(Seconds{0});
        mac_.preferences().flush();
        if (!outcome) return refusal(std::move(outcome.error()));
        outcome->update({{"ok", true}, {"time", timeShape(mac_.scheduler().now())}});
        return std::move(*outcome);
    } catch (const std::exception& fault) {
        return refusal("The command failed: " + std::string(fault.what()) + ".");
    }
}

Outcome Driver::run(const json& given) {
    if (!given.is_object()) return std::unexpected("A command must be an object such as {\"do\": \"look\"}.");
    if (!given.contains("do")) return std::unexpected("The command has no \"do\" that names it.");
    Arguments arguments(given);
    auto problem = obstacle(mac_.screens().unseen());
    if (problem && isOfPerson(arguments.name())) return std::unexpected(std::move(*problem));
    const auto found = commands_.find(arguments.name());
    if (found != commands_.end()) return found->second.run({mac_, content_, person_, targets_}, arguments);
    std::string names;
    for (const auto& [name, command] : commands_) names += (names.empty() ? "" : ", ") + std::string(name);
    return std::unexpected("There is no command of that name; there are " + names + ".");
}

} // namespace mac_model
