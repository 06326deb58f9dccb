#pragma once

#include "terminal/tour.h"

#include <cstddef>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

// What the stations of the tour are told in: what a person does, and what must be seen after it.
namespace mac_model::tour {

using nlohmann::json;

// What a person does.
json press(const std::string& words);
json wait(double seconds);
json click(const std::string& bundle, const std::string& button = "left");
json key(const std::string& name, const json& modifiers = json::array());

bool shows(const Seen&, std::string_view text);
/// Items that are off the screen or that the system withholds.
std::ptrdiff_t countHidden(const Seen&);
/// Whether the model has this value of a setting; a tour on another Mac has nothing to show there.
bool behaves(const Seen&, const std::string& setting, const json& value);

// What must be seen. `bundle` is the program's.
Expectation text(const std::string& words);
Expectation collapsed(const std::string& bundle);
Expectation expanded(const std::string& bundle);
Expectation noControl(const std::string& bundle);
Expectation stored(const std::string& key, const json& value);
Expectation window(std::string_view title);
Expectation noWindow(std::string_view title);
Expectation inFront(const std::string& bundle);
Expectation notInFront(const std::string& bundle);
Expectation notPlacedYet();

} // namespace mac_model::tour
