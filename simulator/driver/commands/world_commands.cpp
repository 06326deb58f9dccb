#include "driver/command.h"
#include "driver/world_settings.h"

#include <array>

namespace mac_model {

using nlohmann::json;

namespace {

std::string namesOfSettings() {
    std::string names;
    for (const auto& setting : worldSettings())
        names += (names.empty() ? "" : ", ") + std::string(setting.key);
    return names;
}

/// All keys are checked before the first takes effect.
Outcome set(DrivenMac driven, Arguments& arguments) {
    const World world{driven.mac};
    auto& reader = arguments.reader();
    std::vector<Change> changes;
    for (const auto& setting : worldSettings())
        if (const auto* value = reader.member(setting.key))
            changes.push_back(setting.prepare(world, *value, reader.at(setting.key), reader.faults()));
    if (auto problem = arguments.problem()) {
        problem->pop_back();
        return std::unexpected(*problem + "; what can be set is " + namesOfSettings() + ".");
    }
    if (changes.empty()) return std::unexpected(arguments.sentence("say what to set: " + namesOfSettings()));
    for (const auto& change : changes) change();
    return json::object();
}

Outcome terminate(DrivenMac driven, Arguments& arguments) {
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    if (!driven.mac.program().isRunning())
        return std::unexpected(arguments.sentence("the program doesn't run"));
    driven.mac.program().terminate();
    return json::object();
}

Outcome start(DrivenMac driven, Arguments& arguments) {
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    driven.mac.program().start();
    return json::object();
}

Outcome crash(DrivenMac driven, Arguments& arguments) {
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    if (!driven.mac.program().isRunning())
        return std::unexpected(arguments.sentence("the program doesn't run"));
    driven.mac.program().crash();
    return json::object();
}

constexpr std::array commands{Command{"set", set}, Command{"terminate", terminate}, Command{"start", start},
                              Command{"crash", crash}};

} // namespace

std::span<const Command> worldCommands() { return commands; }

} // namespace mac_model
