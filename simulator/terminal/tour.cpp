#include "terminal/tour.h"

#include "terminal/menu_bar_drawing.h"
#include "terminal/surface_description.h"

namespace mac_model {

namespace {

using nlohmann::json;

Seen see(Driver& driver) {
    return {driver.command({{"do", "look"}}),
            driver.command({{"do", "defaults"}}).value("values", json::object()),
            driver.command({{"do", "events"}}).value("chosen", json::array())};
}

void draw(std::string_view when, const json& look, std::ostream& out) {
    out << "  " << when << "\n    " << drawMenuBar(look);
}

bool act(Driver& driver, const std::vector<json>& commands, std::ostream& out) {
    for (const auto& command : commands) {
        out << "  > " << command.dump() << "\n";
        const auto reply = driver.command(command);
        if (reply.value("ok", false)) continue;
        out << "  FAILED: " << reply.value("error", "") << "\n";
        return false;
    }
    return true;
}

bool check(const std::vector<Expectation>& expectations, const Seen& seen, std::ostream& out) {
    bool allHold = true;
    for (const auto& expectation : expectations) {
        const bool holds = expectation.holds(seen);
        out << (holds ? "  seen: " : "  NOT SEEN: ") << expectation.sentence << "\n";
        allHold = allHold && holds;
    }
    return allHold;
}

bool play(Driver& driver, const TourStep& step, std::ostream& out) {
    out << step.heading << "\n";
    draw("before", see(driver).look, out);
    const bool hasActed = act(driver, step.commands, out);
    const auto seen = see(driver);
    draw("after", seen.look, out);
    out << describeSurfaces(seen.look);
    if (hasActed && check(step.expectations, seen, out)) return true;
    out << "  What was there instead:\n" << seen.look.dump(2) << "\n" << seen.defaults.dump(2) << "\n";
    return false;
}

} // namespace

bool playTour(Driver& driver, const std::vector<TourStep>& steps, std::size_t number, std::ostream& out) {
    for (const auto& step : steps) {
        out << "\n" << number++ << ". ";
        if (!play(driver, step, out)) return false;
    }
    return number > 0;
}

} // namespace mac_model
