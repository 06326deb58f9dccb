#include "shortcuts/system_shortcuts.h"

#include <limits>

namespace tavrin::SystemShortcuts {

namespace {

constexpr HotKeyShortcut command(KeyCode key) { return {key, commandKeyFlag}; }

bool isKeyCode(std::int64_t code) { return code >= 0 && code <= std::numeric_limits<KeyCode>::max(); }

} // namespace

const std::array<HotKeyShortcut, 19> standardApp{command(12),
                                                 command(13),
                                                 command(8),
                                                 command(9),
                                                 command(7),
                                                 command(6),
                                                 command(0),
                                                 command(1),
                                                 command(45),
                                                 command(31),
                                                 command(35),
                                                 command(17),
                                                 command(3),
                                                 command(4),
                                                 command(46),
                                                 command(43),
                                                 command(48),
                                                 command(49),
                                                 HotKeyShortcut(6, shiftKeyFlag | commandKeyFlag)};

std::vector<HotKeyShortcut> enabledSymbolicHotKeys(const HotKeys& hotKeys) {
    std::vector<HotKeyShortcut> shortcuts;
    for (const auto& entry : hotKeys.symbolicHotKeys()) {
        if (!entry.isEnabled.value_or(false) || !entry.code || !entry.modifiers) continue;
        if (!isKeyCode(*entry.code)) continue;
        shortcuts.emplace_back(static_cast<KeyCode>(*entry.code),
                               modifierFlagsFrom(static_cast<CarbonModifiers>(*entry.modifiers)));
    }
    return shortcuts;
}

} // namespace tavrin::SystemShortcuts
