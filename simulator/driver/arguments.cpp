#include "driver/arguments.h"

#include <cmath>

namespace mac_model {

namespace {

constexpr int coordinateMax = 100'000;

std::optional<double> coordinate(const nlohmann::json& value) {
    if (!value.is_number()) return std::nullopt;
    const auto number = value.get<double>();
    return std::isfinite(number) && std::abs(number) <= coordinateMax ? std::optional(number) : std::nullopt;
}

} // namespace

Arguments::Arguments(const nlohmann::json& command)
    : reader_(command, "", faults_)
    , name_(reader_.text("do", Need::Required)) {}

std::optional<Point> Arguments::point(std::string_view key, Need need) {
    const auto* value = reader_.member(key, need);
    if (!value) return std::nullopt;
    if (value->is_array() && value->size() == 2) {
        const auto x = coordinate((*value)[0]);
        const auto y = coordinate((*value)[1]);
        if (x && y) return Point{*x, *y};
    }
    reader_.refuse(key, "must be two numbers [x, y] of at most " + std::to_string(coordinateMax));
    return std::nullopt;
}

std::vector<Modifier> Arguments::modifiers() {
    std::vector<Modifier> modifiers;
    const auto& names = reader_.list("modifiers", modifierNames.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto place = pointerTo(reader_.at("modifiers"), i);
        const auto index = indexIn(modifierNames.data(), modifierNames.size(), names[i], place, faults_);
        if (index) modifiers.push_back(static_cast<Modifier>(*index));
    }
    return modifiers;
}

MouseButton Arguments::button() { return reader_.choice("button", mouseButtonNames, MouseButton::Left); }

std::optional<std::string> Arguments::problem() {
    reader_.refuseOthers();
    if (!faults_.fault()) return std::nullopt;
    const auto& fault = *faults_.fault();
    return sentence((fault.pointer.empty() ? std::string("the command") : fault.pointer) + " " +
                    fault.problem);
}

std::string Arguments::sentence(const std::string& problem) const {
    return (name_.empty() ? std::string() : inQuotes(name_) + ": ") + problem +
           (problem.ends_with('.') ? "" : ".");
}

} // namespace mac_model
