#pragma once

#include "driver/arguments.h"
#include "driver/targets.h"
#include "input/person.h"
#include "mac/mac.h"
#include "mac/screen_content.h"

#include <span>
#include <string_view>

namespace mac_model {

/// The parts of a Mac that commands act on.
struct DrivenMac {
    Mac& mac;
    ScreenContent& content;
    Person& person;
    TargetFinder& targets;
};

/// One command of the protocol. It reads all its arguments, asks for their problem, and only then acts.
struct Command {
    std::string_view name;
    Outcome (*run)(DrivenMac, Arguments&);
};

std::span<const Command> pointerCommands();
std::span<const Command> keyboardCommands();
std::span<const Command> menuCommands();
std::span<const Command> viewCommands();
std::span<const Command> timeCommands();
std::span<const Command> reportCommands();
std::span<const Command> worldCommands();

} // namespace mac_model
