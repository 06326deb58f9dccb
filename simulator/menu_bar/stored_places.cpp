#include "menu_bar/stored_places.h"

#include "base/ascii.h"

namespace mac_model {

namespace {

constexpr std::string_view positionKey = "NSStatusItem Preferred Position ";
constexpr std::string_view visibleKey = "NSStatusItem Visible ";
constexpr std::string_view controlCenterKey = "NSStatusItem VisibleCC ";
constexpr int firstVersionWithControlCenterKey = 26;

DefaultsDomain globalOfThisHost() { return {".GlobalPreferences", DefaultsDomain::Host::Current}; }

std::string key(std::string_view prefix, const std::string& name) { return std::string(prefix) + name; }

bool isFalse(const std::optional<DefaultsValue>& value) {
    return value && (value->value == decltype(value->value)(false) ||
                     value->value == decltype(value->value)(std::int64_t{0}));
}

} // namespace

std::string StoredPlaces::byHostName(std::string_view name) {
    std::string result(name);
    const auto underscore = result.find('_');
    if (underscore != std::string::npos && underscore + 1 < result.size()) {
        auto& first = result[underscore + 1];
        first = tavrin::lowercasedAscii(first);
    }
    return result + "_v6";
}

std::optional<DefaultsValue> StoredPlaces::value(std::string_view prefix, const std::string& name,
                                                 const DefaultsDomain& domain) const {
    if (auto own = preferences_.value(domain, key(prefix, name))) return own;
    return preferences_.value(globalOfThisHost(), key(prefix, byHostName(name)));
}

std::optional<double> StoredPlaces::position(const Place& place) const {
    return tavrin::numberIn(value(positionKey, place.name, place.domain));
}

void StoredPlaces::readVisibility(StatusItemRecord& record, const DefaultsDomain& domain) const {
    if (isFalse(value(visibleKey, record.name, domain))) record.isVisible = false;
    record.isRestricted = version_.major >= firstVersionWithControlCenterKey &&
                          isFalse(value(controlCenterKey, record.name, domain));
}

void StoredPlaces::setVisible(const StatusItemRecord& record, const DefaultsDomain& domain, bool visible) {
    if (!record.name.empty()) preferences_.set(domain, key(visibleKey, record.name), {visible});
}

void StoredPlaces::setPosition(const Place& place, double position) {
    if (!place.name.empty()) preferences_.set(place.domain, key(positionKey, place.name), {position});
}

void StoredPlaces::removePosition(const Place& place) {
    preferences_.remove(place.domain, key(positionKey, place.name));
    preferences_.remove(globalOfThisHost(), key(positionKey, byHostName(place.name)));
}

} // namespace mac_model
