#include "desktop/defaults_json.h"
#include "desktop/desktop_readers.h"

namespace mac_model {
namespace {

using nlohmann::json;

constexpr const char* marks =
    "must be one of {\"$data\": base64}, {\"$bytes\": base64}, {\"$real\": \"nan\"}, "
    "{\"$real\": \"inf\"}, {\"$real\": \"-inf\"} and {\"$dictionary\": {…}}, since a key "
    "begins with \"$\"";

void refuseUnreadable(const json& value, const std::string& pointer, FirstFault& faults);

/// The keys of a dictionary that is told of as one may begin with "$".
void refuseUnreadableIn(const json& object, const std::string& pointer, FirstFault& faults) {
    for (const auto& member : object.items())
        refuseUnreadable(member.value(), pointerTo(pointer, member.key()), faults);
}

/// The fault that lies deepest is told of first.
void refuseUnreadable(const json& value, const std::string& pointer, FirstFault& faults) {
    if (value.is_null()) return faults.note(pointer, "is null, which preferences cannot hold");
    if (value.is_array())
        for (std::size_t i = 0; i < value.size(); ++i)
            refuseUnreadable(value[i], pointerTo(pointer, i), faults);
    if (!value.is_object()) return;
    const auto dictionary = value.find("$dictionary");
    if (dictionary != value.end() && dictionary->is_object())
        refuseUnreadableIn(*dictionary, pointerTo(pointer, "$dictionary"), faults);
    else
        refuseUnreadableIn(value, pointer, faults);
    if (!defaultsValue(value)) faults.note(pointer, marks);
}

void readDomain(ObjectReader& domains, const std::string& name, const json& value, PreferenceDomains& into) {
    const ObjectReader domain(value, domains.at(name), domains.faults());
    if (!value.is_object()) return;
    refuseUnreadableIn(value, domains.at(name), domains.faults());
    for (const auto& member : value.items()) into[name].emplace(member.key(), member.value());
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
