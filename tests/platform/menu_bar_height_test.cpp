#include "platform/menu_bar_height.h"

#include <gtest/gtest.h>

namespace tavrin {

TEST(MenuBarHeight, followsWhatTheScreenReserves) {
    const std::pair<MenuBarHeightFacts, double> cases[] = {
        {{.reservedAtTop = 25, .notchHeight = 0, .mainMenuHeight = 24}, 24},
        {{.reservedAtTop = 38, .notchHeight = 32, .mainMenuHeight = 37}, 37},
        {{.reservedAtTop = 33, .notchHeight = 32, .mainMenuHeight = 32}, 32},
        {{.reservedAtTop = 25, .notchHeight = 0, .mainMenuHeight = 37}, 24}, // beside a notched screen
        {{.reservedAtTop = 0, .notchHeight = 0, .mainMenuHeight = 24}, 24},  // hides itself
        {{.reservedAtTop = 32, .notchHeight = 32, .mainMenuHeight = 37}, 37},
    };
    for (const auto& [facts, height] : cases) EXPECT_EQ(menuBarHeight(facts), height) << facts.reservedAtTop;
}

} // namespace tavrin
