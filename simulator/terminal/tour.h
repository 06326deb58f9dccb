#pragma once

#include "driver/driver.h"

#include <functional>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <vector>

namespace mac_model {

/// Everything that a step of a tour may judge by: the replies to "look", "defaults" and "events", as anyone
/// who drives the Mac sees them.
struct Seen {
    nlohmann::json look;
    nlohmann::json defaults; // the program's own domain: key to value
    nlohmann::json chosen;   // menu entries of other applications that ran in the step
};

/// Something that must be true after a step.
struct Expectation {
    std::string sentence;
    std::function<bool(const Seen&)> holds;
};

struct TourStep {
    std::string heading;
    std::vector<nlohmann::json> commands;
    std::vector<Expectation> expectations;
};

/// Plays the steps and shows each: the commands, the menu bar before and after, and each expectation as it
/// was found. They are numbered from `number`. Stops after the first step whose outcome wasn't seen, with all
/// that was to be seen instead; false then.
bool playTour(Driver&, const std::vector<TourStep>&, std::size_t number, std::ostream&);

} // namespace mac_model
