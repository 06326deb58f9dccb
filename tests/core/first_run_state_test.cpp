#include "core/first_run_state.h"

#include <gtest/gtest.h>

namespace tavrin {
namespace {

MenuBarItem item(std::string id, std::string bundle = "org.other", bool isMovable = true) {
    MenuBarItem result;
    result.snapshot.id = std::move(id);
    result.snapshot.bundleIdentifier = std::move(bundle);
    result.snapshot.isMovable = isMovable;
    return result;
}

TEST(FirstRunStateTest, hidesWhatCanBeMovedAndIsNotOurs) {
    const std::vector<MenuBarItem> items{item("a"), item("own", "org.tavrin"),
                                         item("clock", "com.apple.controlcenter", false), item("b")};
    const auto chosen = FirstRunState::itemsToHide(items, "org.tavrin");
    ASSERT_EQ(chosen.size(), 2u);
    EXPECT_EQ(chosen[0].snapshot.id, "a");
    EXPECT_EQ(chosen[1].snapshot.id, "b");
}

} // namespace
} // namespace tavrin
