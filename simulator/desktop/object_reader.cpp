#include "desktop/object_reader.h"

#include <algorithm>
#include <cmath>

namespace mac_model {
namespace {

using nlohmann::json;

std::string mustBe(std::string_view what, const json& value) {
    return "must be " + std::string(what) + ", not " + std::string(kindOf(value));
}

std::string plain(double number) {
    std::string text = json(number).dump();
    if (text.ends_with(".0")) text.resize(text.size() - 2);
    return text;
}

std::string mustLieIn(NumberRange range, std::string_view kind) {
    return "must be " + std::string(kind) + " from " + plain(range.least) + " to " + plain(range.most);
}

bool liesIn(NumberRange range, double value) {
    return std::isfinite(value) && value >= range.least && value <= range.most;
}

std::optional<Rect> fourNumbers(const json& value) {
    if (!value.is_array() || value.size() != 4) return std::nullopt;
    for (const json& number : value)
        if (!number.is_number()) return std::nullopt;
    const Rect rect{value[0].get<double>(), value[1].get<double>(), value[2].get<double>(),
                    value[3].get<double>()};
    return rect.isFinite() ? std::optional(rect) : std::nullopt;
}

const json& emptyObject() {
    static const json object = json::object();
    return object;
}

} // namespace

std::string_view kindOf(const json& value) {
    if (value.is_object()) return "an object";
    if (value.is_array()) return "an array";
    if (value.is_string()) return "a text";
    if (value.is_boolean()) return "true or false";
    if (value.is_number()) return "a number";
    return "null";
}

std::optional<std::size_t> indexIn(const std::string_view* names, std::size_t count, const json& value,
                                   const std::string& pointer, FirstFault& faults) {
    const std::string* text = value.get_ptr<const std::string*>();
    const std::string_view* found = text ? std::find(names, names + count, *text) : names + count;
    if (found != names + count) return static_cast<std::size_t>(found - names);
    std::string problem = "must be ";
    for (std::size_t i = 0; i < count; ++i)
        problem += (i == 0 ? "" : i + 1 == count ? " or " : ", ") + inQuotes(names[i]);
    faults.note(pointer, problem + ", not " + (text ? inQuotes(*text) : std::string(kindOf(value))));
    return std::nullopt;
}

ObjectReader::ObjectReader(const json& value, std::string pointer, FirstFault& faults)
    : object_(value.is_object() ? value : emptyObject())
    , pointer_(std::move(pointer))
    , faults_(faults) {
    if (!value.is_object()) faults_.note(pointer_, mustBe("an object", value));
}

const json* ObjectReader::member(std::string_view key, Need need) {
    known_.emplace(key);
    if (const auto found = object_.find(key); found != object_.end()) return &*found;
    if (need == Need::Required) refuse(key, "is missing");
    return nullptr;
}

std::string ObjectReader::text(std::string_view key, Need need, std::string otherwise) {
    const json* value = member(key, need);
    if (!value) return otherwise;
    if (value->is_string()) return value->get<std::string>();
    refuse(key, mustBe("a text", *value));
    return otherwise;
}

bool ObjectReader::flag(std::string_view key, bool otherwise) {
    const json* value = member(key);
    if (!value) return otherwise;
    if (value->is_boolean()) return value->get<bool>();
    refuse(key, mustBe("true or false", *value));
    return otherwise;
}

std::optional<double> ObjectReader::number(std::string_view key, NumberRange range, Need need) {
    const json* value = member(key, need);
    if (!value) return std::nullopt;
    if (value->is_number() && liesIn(range, value->get<double>())) return value->get<double>();
    refuse(key, mustLieIn(range, "a number"));
    return std::nullopt;
}

std::optional<int> ObjectReader::integer(std::string_view key, NumberRange range, Need need) {
    const json* value = member(key, need);
    if (!value) return std::nullopt;
    if (value->is_number_integer() && liesIn(range, value->get<double>())) return value->get<int>();
    refuse(key, mustLieIn(range, "a whole number"));
    return std::nullopt;
}

std::optional<Rect> ObjectReader::frame(std::string_view key, Need need) {
    const json* value = member(key, need);
    if (!value) return std::nullopt;
    const std::optional<Rect> rect = fourNumbers(*value);
    if (!rect)
        refuse(key, "must be four finite numbers [x, y, width, height]");
    else if (rect->width <= 0 || rect->height <= 0)
        refuse(key, "must have a positive width and height");
    else
        return rect;
    return std::nullopt;
}

const std::vector<json>& ObjectReader::list(std::string_view key, std::size_t most, Need need) {
    static const std::vector<json> none;
    const json* value = member(key, need);
    if (!value) return none;
    if (!value->is_array())
        refuse(key, mustBe("an array", *value));
    else if (value->size() > most)
        refuse(key,
               "has " + std::to_string(value->size()) + " entries; " + std::to_string(most) + " is the most");
    else
        return value->get_ref<const std::vector<json>&>();
    return none;
}

std::size_t ObjectReader::chosen(std::string_view key, std::span<const std::string_view> names,
                                 std::size_t otherwise, Need need) {
    const json* value = member(key, need);
    if (!value) return otherwise;
    return indexIn(names.data(), names.size(), *value, at(key), faults_).value_or(otherwise);
}

void ObjectReader::refuse(std::string_view key, std::string problem) {
    faults_.note(at(key), std::move(problem));
}

void ObjectReader::refuseOthers() {
    for (const auto& member : object_.items())
        if (!known_.contains(member.key())) refuse(member.key(), "is not a key that belongs here");
}

bool ObjectReader::has(std::string_view key) const { return object_.contains(key); }

} // namespace mac_model
