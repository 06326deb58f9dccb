#include "driver/command.h"
#include "driver/json_shapes.h"
#include "driver/look.h"
#include "vocabulary/vocabulary.h"

#include <array>
#include <ctime>

namespace mac_model {

using nlohmann::json;

namespace {

json shapeOf(const SyntheticEvent& event) {
    json shape{{"time", timeShape(event.time)}, {"type", event.type}};
    if (!event.tap.empty()) shape["tap"] = event.tap;
    if (event.processIdentifier) shape["processIdentifier"] = *event.processIdentifier;
    for (const auto& [field, value] : event.fields) shape["fields"][std::to_string(field)] = value;
    if (!event.at) return shape; // a key, a change of the cursor, or a sound
    shape.update({{"at", pointShape(*event.at)}, {"flags", event.flags}, {"clickState", event.clickState}});
    return shape;
}

Outcome look(DrivenMac driven, Arguments& arguments) {
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    return lookAt(driven.mac, driven.content);
}

Outcome events(DrivenMac driven, Arguments& arguments) {
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    json events = json::array();
    json said = json::array();
    for (const auto& event : driven.content.events.drain())
        if (event.text.empty())
            events.push_back(shapeOf(event));
        else
            said.push_back({{"time", timeShape(event.time)}, {"text", event.text}});
    json chosen = json::array();
    for (const auto& entry : driven.content.chosen.drain())
        chosen.push_back({{"time", timeShape(entry.time)},
                          {"owner", entry.owner},
                          {"menu", entry.menu},
                          {"path", entry.path}});
    return json{{"events", std::move(events)}, {"chosen", std::move(chosen)}, {"said", std::move(said)}};
}

Outcome defaults(DrivenMac driven, Arguments& arguments) {
    constexpr std::array<std::string_view, 2> hosts{"any", "current"};
    auto domain = driven.mac.programDomain();
    domain.name = arguments.reader().text("domain", Need::Optional, domain.name);
    domain.host = arguments.reader().choice("host", hosts, DefaultsDomain::Host::Any);
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    json reply{{"domain", domain.name}, {"values", driven.mac.preferences().describe(domain)}};
    if (const auto& error = driven.mac.preferences().lastWriteError()) reply["writeError"] = *error;
    return reply;
}

Outcome stats(DrivenMac driven, Arguments& arguments) {
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    const auto statistics = driven.mac.statistics();
    return json{{"messages", statistics.messages},
                {"timers", statistics.timersPending},
                {"tasks", statistics.tasksAlive},
                {"flashes", statistics.flashes},
                {"activations", statistics.activations},
                {"cpu", static_cast<double>(std::clock()) / CLOCKS_PER_SEC},
                {"virtual", timeShape(statistics.virtualTime)}};
}

constexpr std::array commands{Command{"look", look}, Command{"events", events}, Command{"defaults", defaults},
                              Command{"stats", stats}};

} // namespace

std::span<const Command> reportCommands() { return commands; }

} // namespace mac_model
