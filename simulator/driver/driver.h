#pragma once

#include "driver/command.h"

#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace mac_model {

/// The driving protocol (docs/driving.md): commands that act for the person, let time pass, look, and change
/// the world. Time stands still between commands, and after each, everything that is due has happened.
/// Nothing throws, and a command that is refused has changed nothing.
class Driver {
  public:
    static constexpr std::size_t lineBytesMax = 1024 * 1024;

    explicit Driver(Mac&);
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;

    /// One line of JSON in, one out; neither has the line break.
    std::string handleLine(std::string_view line);
    nlohmann::json command(const nlohmann::json&);

  private:
    nlohmann::json refusal(std::string sentence) const;
    Outcome run(const nlohmann::json&);

    Mac& mac_;
    ScreenContent& content_;
    Person& person_;
    TargetFinder targets_;
    std::map<std::string_view, Command> commands_;
};

} // namespace mac_model
