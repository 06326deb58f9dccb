#include "base/unicode.h"
#include "driver/command.h"

#include <array>

namespace mac_model {

using nlohmann::json;

namespace {

Outcome key(DrivenMac driven, Arguments& arguments) {
    const auto key = arguments.reader().text("key", Need::Required);
    const auto modifiers = arguments.modifiers();
    const bool isKnown = tavrin::countOfCharacters(key) == 1 || isNamedKey(key);
    if (!isKnown) arguments.reader().refuse("key", "must be one character, or one of " + namesOfKeys());
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    return json{{"handled", driven.person.pressKey(key, modifiers)}};
}

Outcome type(DrivenMac, Arguments& arguments) {
    (void)arguments.reader().text("text", Need::Required);
    if (auto problem = arguments.problem()) return std::unexpected(std::move(*problem));
    return std::unexpected(
        arguments.sentence("no text field has the keyboard; nothing on this Mac takes text yet"));
}

constexpr std::array commands{Command{"key", key}, Command{"type", type}};

} // namespace

std::span<const Command> keyboardCommands() { return commands; }

} // namespace mac_model
