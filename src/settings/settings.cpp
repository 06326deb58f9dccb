#include "settings/settings.h"

#include "settings/own_choice.h"

#include <algorithm>
#include <utility>

namespace tavrin {

bool Settings::boolean(std::string_view key) const {
    const auto stored = defaults_.value(domain_, key);
    if (!stored) return false;
    if (const auto* boolean = std::get_if<bool>(&stored->value)) return *boolean;
    return numberIn(stored).value_or(0) != 0;
}

void Settings::setBoolean(std::string_view key, bool value) { storeOwnChoice(defaults_, key, {value}); }

std::set<std::string> Settings::strings(std::string_view key) const {
    const auto stored = defaults_.value(domain_, key);
    const auto* array = stored ? std::get_if<DefaultsArray>(&stored->value) : nullptr;
    std::set<std::string> strings;
    if (!array) return strings;
    for (const auto& element : *array) {
        if (const auto* text = std::get_if<std::string>(&element.value)) strings.insert(*text);
    }
    return strings;
}

void Settings::setStrings(std::string_view key, const std::set<std::string>& values) {
    DefaultsArray array;
    for (const auto& text : values) array.push_back({text});
    storeOwnChoice(defaults_, key, {std::move(array)});
}

std::int64_t Settings::statusItemAutosaveVersion() const {
    const auto stored = defaults_.value(domain_, statusItemAutosaveVersionKey);
    const auto* version = stored ? std::get_if<std::int64_t>(&stored->value) : nullptr;
    return std::max<std::int64_t>(version ? *version : 1, 1);
}

void Settings::setStatusItemAutosaveVersion(std::int64_t version) {
    storeOwnChoice(defaults_, statusItemAutosaveVersionKey, {version});
}

} // namespace tavrin
