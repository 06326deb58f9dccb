#include "driver/command.h"
#include "vocabulary/vocabulary.h"

#include <array>

namespace mac_model {

using nlohmann::json;

namespace {

constexpr Seconds settleTimeMax{30};

Outcome wait(DrivenMac driven, Arguments& arguments) {
    const auto seconds = arguments.reader().number("seconds", {0, 86'400}, Need::Required);
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    driven.mac.scheduler().advance(Seconds{*seconds});
    return json::object();
}

Outcome settle(DrivenMac driven, Arguments& arguments) {
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    return json{{"settled", driven.mac.scheduler().settle(settleTimeMax)}};
}

constexpr std::array commands{Command{"wait", wait}, Command{"settle", settle}};

} // namespace

std::span<const Command> timeCommands() { return commands; }

} // namespace mac_model
