#pragma once

#include "base/ascii.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tavrin {

/// A menu extra of the system that a plan can allow or withhold, by the number that macOS has for it.
struct MenuBarSystemItem {
    int number;
    std::string_view canonicalIdentifier;
    bool isFixed = false; // never hidden

    /// Null for an extra that has no number here.
    static const MenuBarSystemItem* forCanonicalIdentifier(std::string_view identifier);
};

inline constexpr std::array menuBarSystemItems{
    MenuBarSystemItem{0, "com.apple.menuextra.battery"},
    MenuBarSystemItem{1, "com.apple.menuextra.bluetooth"},
    MenuBarSystemItem{2, "com.apple.menuextra.clock", true},
    MenuBarSystemItem{3, "com.apple.menuextra.display"},
    MenuBarSystemItem{4, "com.apple.menuextra.keyboardbrightness"},
    MenuBarSystemItem{5, "com.apple.menuextra.sound"},
    MenuBarSystemItem{6, "com.apple.menuextra.wifi"},
    MenuBarSystemItem{7, "com.apple.menuextra.screenmirroring"},
    MenuBarSystemItem{8, "com.apple.menuextra.controlcenter", true},
};

inline const MenuBarSystemItem* MenuBarSystemItem::forCanonicalIdentifier(std::string_view identifier) {
    const auto found = std::ranges::find(menuBarSystemItems, std::string_view(lowercasedAscii(identifier)),
                                         &MenuBarSystemItem::canonicalIdentifier);
    return found == menuBarSystemItems.end() ? nullptr : &*found;
}

} // namespace tavrin
