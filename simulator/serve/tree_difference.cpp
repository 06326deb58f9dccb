#include "serve/tree_difference.h"

#include <algorithm>
#include <array>
#include <string>

namespace mac_model {

namespace {

using nlohmann::json;

bool isSameElement(const json& before, const json& after) {
    if (!before.is_object() || !after.is_object()) return before == after;
    constexpr std::array keys{"id", "role", "text"};
    for (const auto* key : keys) {
        const auto one = before.find(key);
        const auto other = after.find(key);
        if ((one == before.end()) != (other == after.end())) return false;
        if (one != before.end() && *one != *other) return false;
        if (one != before.end() && key == keys.front()) return true;
    }
    return true;
}

bool holdsTrees(const json& array) {
    return std::ranges::any_of(array, [](const json& element) { return element.is_structured(); });
}

json changeOf(const json& before, const json& after);

void putChange(json& difference, const std::string& place, const json& before, const json& after) {
    if (before != after) difference[place] = changeOf(before, after);
}

json ofObjects(const json& before, const json& after) {
    json difference = json::object();
    for (const auto& [key, value] : before.items())
        if (!after.contains(key)) difference[key] = 0;
    for (const auto& [key, value] : after.items()) {
        const auto old = before.find(key);
        if (old == before.end())
            difference[key] = json::array({value});
        else
            putChange(difference, key, *old, value);
    }
    return difference;
}

/// Elements at the beginning and the end are paired as long as they are the same; what lies between is paired
/// one by one when as many are left on either side, else replaced.
json ofArrays(const json& before, const json& after) {
    const std::size_t shorter = std::min(before.size(), after.size());
    std::size_t head = 0;
    while (head < shorter && isSameElement(before[head], after[head])) ++head;
    std::size_t tail = 0;
    while (tail < shorter - head &&
           isSameElement(before[before.size() - 1 - tail], after[after.size() - 1 - tail]))
        ++tail;

    json difference = json::object();
    const bool isPaired = before.size() == after.size();
    if (!isPaired) {
        json values = json::array();
        for (std::size_t i = head; i < after.size() - tail; ++i) values.push_back(after[i]);
        difference["splice"] = {head, before.size() - tail - head, std::move(values)};
    }
    const std::size_t headEnd = isPaired ? after.size() - tail : head;
    for (std::size_t i = 0; i < headEnd; ++i) putChange(difference, std::to_string(i), before[i], after[i]);
    for (std::size_t i = after.size() - tail; i < after.size(); ++i)
        putChange(difference, std::to_string(i), before[i + before.size() - after.size()], after[i]);
    return difference;
}

json changeOf(const json& before, const json& after) {
    if (before.is_object() && after.is_object()) return ofObjects(before, after);
    if (before.is_array() && after.is_array() && (holdsTrees(before) || holdsTrees(after)))
        return ofArrays(before, after);
    return json::array({after});
}

} // namespace

json differenceOf(const json& before, const json& after) { return ofObjects(before, after); }

} // namespace mac_model
