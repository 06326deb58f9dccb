#pragma once

#include "driver/arguments.h"
#include "driver/targets.h"
#include "driver/world_state.h"
#include "input/person.h"
#include "mac/mac.h"
#include "mac/screen_content.h"

#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace mac_model {

/// The driving protocol (docs/driving.md): commands that act for the person, let time pass, look, and change
/// the world. Time stands still between commands, and after each all that is due has happened. Nothing
/// throws, and a command that is refused has changed nothing.
class Driver {
  public:
    static constexpr std::size_t lineBytesMax = 1024 * 1024;
    static constexpr tavrin::Seconds clickTime{0.05}; // from down to up
    static constexpr tavrin::Seconds settleTimeMax{30};

    explicit Driver(Mac&);
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;

    /// One line of JSON in, one out; neither has the line break.
    std::string handleLine(std::string_view line);
    nlohmann::json command(const nlohmann::json&);

  private:
    using Handler = Outcome (Driver::*)(Arguments&);
    static const std::map<std::string_view, Handler>& handlers();

    nlohmann::json refusal(std::string sentence) const;
    Outcome run(const nlohmann::json&);

    Outcome look(Arguments&);
    Outcome click(Arguments&);
    Outcome press(Arguments&);
    Outcome menu(Arguments&);
    Outcome drag(Arguments&);
    Outcome perform(Arguments&);
    Outcome move(Arguments&);
    Outcome down(Arguments&);
    Outcome up(Arguments&);
    Outcome scroll(Arguments&);
    Outcome key(Arguments&);
    Outcome type(Arguments&);
    Outcome wait(Arguments&);
    Outcome settle(Arguments&);
    Outcome set(Arguments&);
    Outcome events(Arguments&);
    Outcome defaults(Arguments&);
    Outcome stats(Arguments&);
    Outcome terminate(Arguments&);
    Outcome start(Arguments&);
    Outcome crash(Arguments&);

    Outcome clickAt(tavrin::Point, MouseButton, int count, const std::vector<Modifier>&);
    Outcome dragView(Arguments&);
    void moveInSteps(tavrin::Point);
    std::expected<void, std::string> carryOnto(const std::string& name);
    std::expected<void, std::string> choosePath(const std::vector<std::string>& titles);
    bool isOnScreen(tavrin::Point) const;

    Mac& mac_;
    ScreenContent& content_;
    Person& person_;
    TargetFinder targets_;
    WorldState state_;
};

} // namespace mac_model
