#include "input/keyboard_model.h"

namespace mac_model {

ModifierFlags flagsOf(const std::vector<Modifier>& modifiers) {
    constexpr std::array flags{tavrin::shiftKeyFlag, tavrin::optionKeyFlag, tavrin::controlKeyFlag,
                               tavrin::commandKeyFlag};
    ModifierFlags all = 0;
    for (const auto modifier : modifiers) all |= flags[std::size_t(modifier)];
    return all;
}

std::optional<KeyPress> KeyboardModel::strokeOf(std::string_view key,
                                                const std::vector<Modifier>& modifiers) const {
    const auto code = keyCodeOn(layout, key);
    return code ? std::optional(KeyPress{*code, flagsOf(modifiers)}) : std::nullopt;
}

KeyHandling KeyboardModel::showToMonitors(const KeyPress& press) const {
    auto handling = KeyHandling::PassedOn;
    monitors.emitWhile([&] { return handling == KeyHandling::PassedOn; }, press, &handling);
    return handling;
}

} // namespace mac_model
