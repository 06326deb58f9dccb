#include "driver/driver.h"
#include "driver/world_settings.h"

namespace mac_model {

namespace {

std::string namesOfSettings() {
    std::string names;
    for (const auto& setting : worldSettings())
        names += (names.empty() ? "" : ", ") + std::string(setting.key);
    return names;
}

} // namespace

/// All keys are checked before the first takes effect.
Outcome Driver::set(Arguments& arguments) {
    const World world{mac_, state_};
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
    return nlohmann::json::object();
}

} // namespace mac_model
