#pragma once

namespace tavrin {

/// AppKit's facts about the top of a screen, in points.
struct MenuBarHeightFacts {
    double reservedAtTop = 0;  // between the tops of `frame` and of `visibleFrame`
    double notchHeight = 0;    // `safeAreaInsets.top`
    double mainMenuHeight = 0; // `mainMenu.menuBarHeight`, also right while the menu bar hides itself
};

/// macOS keeps windows off the menu bar and off one point below it (macOS 13 to 26: 38 for a bar of 37, 25
/// for 24, 31 for 30). A menu bar that hides itself keeps nothing but a notch free.
inline double menuBarHeight(const MenuBarHeightFacts& facts) {
    constexpr double lineBelowMenuBar = 1;
    const bool isMenuBarShown = facts.reservedAtTop > facts.notchHeight;
    return isMenuBarShown ? facts.reservedAtTop - lineBelowMenuBar : facts.mainMenuHeight;
}

} // namespace tavrin
