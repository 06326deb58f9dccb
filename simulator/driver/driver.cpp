#include "driver/driver.h"

#include "driver/json_shapes.h"
#include "driver/look.h"

#include <ctime>
#include <exception>
#include <utility>

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

} // namespace

Driver::Driver(Mac& mac)
    : mac_(mac)
    , content_(mac.content())
    , person_(mac.person())
    , targets_(mac, mac.content()) {
    state_.visibilityService = mac.desktop().visibilityService;
}

const std::map<std::string_view, Driver::Handler>& Driver::handlers() {
    static const std::map<std::string_view, Handler> table{
        {"look", &Driver::look},         {"click", &Driver::click}, {"press", &Driver::press},
        {"menu", &Driver::menu},         {"drag", &Driver::drag},   {"move", &Driver::move},
        {"down", &Driver::down},         {"up", &Driver::up},       {"scroll", &Driver::scroll},
        {"key", &Driver::key},           {"type", &Driver::type},   {"wait", &Driver::wait},
        {"settle", &Driver::settle},     {"set", &Driver::set},     {"events", &Driver::events},
        {"defaults", &Driver::defaults}, {"stats", &Driver::stats}, {"terminate", &Driver::terminate},
        {"start", &Driver::start},       {"crash", &Driver::crash}, {"perform", &Driver::perform}};
    return table;
}

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
    // What commands call reports its failures as values; this is for what nobody expects, such as memory
    // running out.
    try {
        auto outcome = run(given);
        mac_.scheduler().advance(tavrin::Seconds{0});
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
    const auto found = handlers().find(arguments.name());
    if (found != handlers().end()) return (this->*found->second)(arguments);
    std::string names;
    for (const auto& [name, handler] : handlers()) names += (names.empty() ? "" : ", ") + std::string(name);
    return std::unexpected("There is no command of that name; there are " + names + ".");
}

Outcome Driver::look(Arguments& arguments) {
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    return lookAt(mac_, content_, state_);
}

Outcome Driver::wait(Arguments& arguments) {
    const auto seconds = arguments.reader().number("seconds", {0, 86'400}, Need::Required);
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    mac_.scheduler().advance(tavrin::Seconds{*seconds});
    return json::object();
}

Outcome Driver::settle(Arguments& arguments) {
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    return json{{"settled", mac_.scheduler().settle(settleTimeMax)}};
}

Outcome Driver::events(Arguments& arguments) {
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    json events = json::array();
    for (const auto& event : content_.events.drain()) events.push_back(shapeOf(event));
    json chosen = json::array();
    for (const auto& entry : content_.chosen.drain())
        chosen.push_back({{"time", timeShape(entry.time)},
                          {"owner", entry.owner},
                          {"menu", entry.menu},
                          {"path", entry.path}});
    return json{{"events", std::move(events)}, {"chosen", std::move(chosen)}};
}

Outcome Driver::defaults(Arguments& arguments) {
    constexpr std::array<std::string_view, 2> hosts{"any", "current"};
    auto domain = mac_.programDomain();
    domain.name = arguments.reader().text("domain", Need::Optional, domain.name);
    domain.host = arguments.reader().choice("host", hosts, tavrin::DefaultsDomain::Host::Any);
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    json reply{{"domain", domain.name}, {"values", mac_.preferences().describe(domain)}};
    if (const auto& error = mac_.preferences().lastWriteError()) reply["writeError"] = *error;
    return reply;
}

Outcome Driver::stats(Arguments& arguments) {
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    const auto statistics = mac_.statistics();
    return json{{"messages", statistics.messages},
                {"timers", statistics.timersPending},
                {"tasks", statistics.tasksAlive},
                {"cpu", static_cast<double>(std::clock()) / CLOCKS_PER_SEC},
                {"virtual", timeShape(statistics.virtualTime)}};
}

Outcome Driver::terminate(Arguments& arguments) {
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    if (!mac_.program().isRunning()) return std::unexpected(arguments.sentence("the program doesn't run"));
    mac_.program().terminate();
    return json::object();
}

Outcome Driver::start(Arguments& arguments) {
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    mac_.program().start();
    return json::object();
}

Outcome Driver::crash(Arguments& arguments) {
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    if (!mac_.program().isRunning()) return std::unexpected(arguments.sentence("the program doesn't run"));
    mac_.program().crash();
    return json::object();
}

} // namespace mac_model
