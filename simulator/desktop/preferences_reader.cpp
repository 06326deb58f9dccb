#include "desktop/desktop_readers.h"

namespace mac_model {
namespace {

using nlohmann::json;

/// A preferences domain holds no null at any depth.
void refuseNull(const json& value, const std::string& pointer, FirstFault& faults) {
    if (value.is_null()) faults.note(pointer, "is null, which preferences cannot hold");
    if (value.is_array())
        for (std::size_t i = 0; i < value.size(); ++i) refuseNull(value[i], pointerTo(pointer, i), faults);
    if (value.is_object())
        for (const auto& member : value.items())
            refuseNull(member.value(), pointerTo(pointer, member.key()), faults);
}

void readDomain(ObjectReader& domains, const std::string& name, const json& value, PreferenceDomains& into) {
    refuseNull(value, domains.at(name), domains.faults());
    const ObjectReader domain(value, domains.at(name), domains.faults());
    for (const auto& member : value.items())
        if (value.is_object()) into[name].emplace(member.key(), member.value());
}

} // namespace

StoredPreferences readPreferences(const json& value, const std::string& pointer, FirstFault& faults) {
    StoredPreferences preferences;
    ObjectReader domains(value, pointer, faults);
    if (!value.is_object()) return preferences;
    for (const auto& member : value.items()) {
        if (member.key() != "byHost") {
            readDomain(domains, member.key(), member.value(), preferences.ordinary);
            continue;
        }
        ObjectReader byHost(member.value(), domains.at("byHost"), faults);
        if (!member.value().is_object()) continue;
        for (const auto& inner : member.value().items())
            readDomain(byHost, inner.key(), inner.value(), preferences.byHost);
    }
    return preferences;
}

} // namespace mac_model
