#include "desktop/defaults_json.h"

#include "base/base64.h"
#include "base/unicode.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace mac_model {

using nlohmann::json;
using tavrin::DefaultsArray;
using tavrin::DefaultsData;
using tavrin::DefaultsDictionary;

namespace {

DefaultsData bytesOf(const std::string& text) {
    DefaultsData bytes(text.size());
    std::ranges::transform(text, bytes.begin(), [](char c) { return static_cast<std::byte>(c); });
    return bytes;
}

std::string textOf(const DefaultsData& bytes) {
    std::string text(bytes.size(), '\0');
    std::ranges::transform(bytes, text.begin(), [](std::byte b) { return static_cast<char>(b); });
    return text;
}

struct Encoder {
    json operator()(bool value) const { return value; }

    json operator()(std::int64_t value) const { return value; }

    json operator()(double value) const {
        if (std::isfinite(value)) return value;
        return {{"$real", std::isnan(value) ? "nan" : value > 0 ? "inf" : "-inf"}};
    }

    json operator()(const std::string& value) const {
        if (tavrin::isUtf8(value)) return value;
        return {{"$bytes", tavrin::base64From(bytesOf(value))}};
    }

    json operator()(const DefaultsData& value) const { return {{"$data", tavrin::base64From(value)}}; }

    json operator()(const DefaultsArray& value) const {
        auto array = json::array();
        for (const auto& element : value) array.push_back(toJson(element));
        return array;
    }

    json operator()(const DefaultsDictionary& value) const {
        auto object = toJson(value);
        const bool isAmbiguous =
            std::ranges::any_of(value, [](const auto& e) { return e.first.starts_with('$'); });
        return isAmbiguous ? json{{"$dictionary", std::move(object)}} : object;
    }
};

std::optional<DefaultsValue> dictionary(const json& object) {
    DefaultsDictionary result;
    for (const auto& [key, element] : object.items()) {
        auto value = defaultsValue(element);
        if (!value) return std::nullopt;
        result.emplace(key, std::move(*value));
    }
    return DefaultsValue{std::move(result)};
}

std::optional<DefaultsValue> array(const json& elements) {
    DefaultsArray result;
    for (const auto& element : elements) {
        auto value = defaultsValue(element);
        if (!value) return std::nullopt;
        result.push_back(std::move(*value));
    }
    return DefaultsValue{std::move(result)};
}

std::optional<DefaultsValue> unusualReal(const std::string& name) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    if (name == "nan") return DefaultsValue{std::numeric_limits<double>::quiet_NaN()};
    if (name == "inf") return DefaultsValue{infinity};
    if (name == "-inf") return DefaultsValue{-infinity};
    return std::nullopt;
}

/// An object with a single key that begins with "$".
std::optional<DefaultsValue> marked(const std::string& key, const json& content) {
    if (key == "$dictionary" && content.is_object()) return dictionary(content);
    if (!content.is_string()) return std::nullopt;
    const auto& text = content.get_ref<const std::string&>();
    if (key == "$real") return unusualReal(text);
    const auto bytes = tavrin::bytesFromBase64(text);
    if (key == "$data" && bytes) return DefaultsValue{*bytes};
    if (key == "$bytes" && bytes) return DefaultsValue{textOf(*bytes)};
    return std::nullopt;
}

DefaultsValue number(const json& value) {
    const bool fits =
        value.is_number_integer() &&
        !(value.is_number_unsigned() &&
          value.get<std::uint64_t>() > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()));
    return fits ? DefaultsValue{value.get<std::int64_t>()} : DefaultsValue{value.get<double>()};
}

} // namespace

json toJson(const DefaultsValue& value) { return std::visit(Encoder{}, value.value); }

json toJson(const DefaultsDictionary& dictionary) {
    auto object = json::object();
    for (const auto& [key, value] : dictionary) object[key] = toJson(value);
    return object;
}

std::optional<DefaultsValue> defaultsValue(const json& value) {
    if (value.is_boolean()) return DefaultsValue{value.get<bool>()};
    if (value.is_number()) return number(value);
    if (value.is_string()) return DefaultsValue{value.get<std::string>()};
    if (value.is_array()) return array(value);
    if (!value.is_object()) return std::nullopt;
    const bool isMarked =
        std::ranges::any_of(value.items(), [](const auto& e) { return e.key().starts_with('$'); });
    if (!isMarked) return dictionary(value);
    return value.size() == 1 ? marked(value.begin().key(), value.begin().value()) : std::nullopt;
}

} // namespace mac_model
