#include "pins/menus/live_status_items.h"
#include "pins/menus/menu_shortcut.h"
#include "pins/menus/menu_tree_reader.h"
#include "support/fake_accessibility.h"

#include <gtest/gtest.h>
#include <numeric>

namespace tavrin {
namespace {

using Limits = MenuTreeReader::Limits;

bool toTheFirst(const PinnedMenuNode& item, std::size_t) {
    return item.title && item.title->contains("Item");
}

class MenuTreeReaderTest : public testing::Test {
  protected:
    FakeAccessibility ax;
    AbandonFlag abandoned;

    FakeAccessibility::Node& make(int number, const std::string& role, const std::string& title = "") {
        auto& node = ax.nodes[number];
        node.attributes["AXRole"] = role;
        if (!title.empty()) node.attributes["AXTitle"] = title;
        node.attributes["AXEnabled"] = true;
        node.actions = {"AXPress"};
        return node;
    }

    /// Menu 1 holds item 2, whose menu 3 holds item 4 and so on.
    void makeNested(int menus) {
        for (int n = 1; n < 2 * menus; n += 2) {
            make(n, "AXMenu");
            ax.setChildren(n, {n + 1});
            make(n + 1, "AXMenuItem", "Item " + std::to_string(n));
            if (n + 2 < 2 * menus) ax.setChildren(n + 1, {n + 2});
        }
    }

    static int countOf(const PinnedMenuNode& node) {
        return std::accumulate(node.children.begin(), node.children.end(), 1,
                               [](int sum, const auto& child) { return sum + countOf(child); });
    }

    static int depthOf(const PinnedMenuNode& node) {
        int depth = 0;
        for (const auto& child : node.children) depth = std::max(depth, 1 + depthOf(child));
        return depth;
    }
};

TEST_F(MenuTreeReaderTest, readsNoDeeperThanTheLimitAndNoMoreThanTheBudget) {
    makeNested(10);
    for (const auto& [limits, depth, count] : {std::tuple{MenuTreeReader::statusItemLimits, 6, 7},
                                               {MenuTreeReader::appMenuBarLimits, 8, 9},
                                               {Limits{30, 1500}, 19, 20},
                                               {Limits{30, 5}, 4, 5},
                                               {Limits{0, 5}, 0, 1}}) {
        MenuTreeReader reader(ax, limits);
        const auto tree = reader.tree(FakeAccessibility::element(1), abandoned);
        ASSERT_TRUE(tree);
        EXPECT_EQ(depthOf(*tree), depth);
        EXPECT_EQ(countOf(*tree), count);
        EXPECT_EQ(reader.elements().size(), static_cast<std::size_t>(count));
    }
}

TEST_F(MenuTreeReaderTest, cutsALargeMenuOff) {
    make(1, "AXMenu");
    std::vector<int> items(2000);
    std::iota(items.begin(), items.end(), 10);
    for (const auto item : items) make(item, "AXMenuItem", std::to_string(item));
    ax.setChildren(1, items);
    MenuTreeReader whole(ax, MenuTreeReader::appMenuBarLimits);
    EXPECT_EQ(countOf(*whole.tree(FakeAccessibility::element(1), abandoned)), 1500);
    MenuTreeReader stepwise(ax, MenuTreeReader::statusItemLimits);
    auto root = stepwise.root(FakeAccessibility::element(1), abandoned);
    ASSERT_TRUE(stepwise.readItems(*root, toTheFirst, abandoned));
    EXPECT_EQ(root->items().size(), 599u);
}

TEST_F(MenuTreeReaderTest, readsWhatIsBelowAnItemBeforeWhatIsBehindIt) {
    makeNested(3);
    std::vector<int> items{2};
    for (int item = 10; item < 40; ++item) {
        make(item, "AXMenuItem", std::to_string(item));
        items.push_back(item);
    }
    ax.setChildren(1, items);
    MenuTreeReader reader(ax, {6, 10});
    for (int reading = 0; reading < 2; ++reading) {
        auto root = reader.root(FakeAccessibility::element(1), abandoned);
        ASSERT_TRUE(root);
        ASSERT_TRUE(reader.readItems(*root, toTheFirst, abandoned));
        EXPECT_EQ(depthOf(*root), 5);
        EXPECT_EQ(countOf(*root), 10) << "in each reading";
    }
}

TEST_F(MenuTreeReaderTest, takesThreeMessagesANodeAtMost) {
    makeNested(4);
    MenuTreeReader reader(ax, {30, 1500});
    const auto tree = reader.tree(FakeAccessibility::element(1), abandoned);
    EXPECT_LE(ax.messages, 3 * countOf(*tree));
    ax.messages = 0;
    MenuTreeReader stepwise(ax, {30, 1500});
    auto node = *stepwise.root(FakeAccessibility::element(1), abandoned);
    ASSERT_TRUE(stepwise.readItems(node, toTheFirst, abandoned));
    EXPECT_EQ(depthOf(node), 7);
    EXPECT_LE(ax.messages, 3 * static_cast<int>(stepwise.elements().size()));
}

TEST_F(MenuTreeReaderTest, readsWhatAPersonSees) {
    make(1, "AXMenu");
    auto& item = make(2, "AXMenuItem", "Save").attributes;
    item["AXDescription"] = "is not its title";
    item["AXIdentifier"] = "save";
    item["AXMenuItemCmdChar"] = "S";
    item["AXMenuItemCmdModifiers"] = 7.0;
    item["AXMenuItemMarkChar"] = "✓";
    auto& box = make(3, "AXCheckBox").attributes;
    box["AXTitle"] = "";
    box["AXDescription"] = "Dark Mode";
    box["AXValue"] = 1.0;
    auto& plain = make(4, "AXMenuItem").attributes;
    plain["AXMenuItemMarkChar"] = "";
    plain["AXValue"] = 1.0;
    plain["AXEnabled"] = false;
    ax.nodes[5].error = AccessibilityError::InvalidElement;
    ax.setChildren(1, {2, 3, 4, 5});
    MenuTreeReader reader(ax, MenuTreeReader::statusItemLimits);
    const auto tree = reader.tree(FakeAccessibility::element(1), abandoned);
    ASSERT_TRUE(tree);
    const auto& nodes = tree->children;
    ASSERT_EQ(nodes.size(), 4u);
    EXPECT_EQ(nodes[0].title, "Save");
    EXPECT_EQ(nodes[0].identifier, "save");
    EXPECT_EQ(nodes[0].shortcut, "⌃⌥⇧⌘S");
    EXPECT_TRUE(nodes[0].isChecked);
    EXPECT_EQ(nodes[1].title, "Dark Mode");
    EXPECT_TRUE(nodes[1].isChecked);
    EXPECT_FALSE(nodes[2].isChecked) << "a value ticks only a check box";
    EXPECT_FALSE(nodes[2].isEnabled);
    EXPECT_FALSE(nodes[2].shortcut);
    EXPECT_EQ(nodes[3].role, "") << "one that is gone spoils nothing";
    EXPECT_EQ(tree->labelledItems().size(), 2u);
    EXPECT_EQ(reader.elementOf(nodes[2]), FakeAccessibility::element(4));
}

TEST_F(MenuTreeReaderTest, endsAtTheFirstMessageWithoutAnAnswer) {
    makeNested(3);
    for (const auto& [error, failure] : {std::pair{AccessibilityError::CannotComplete, ReadFailure::TimedOut},
                                         {AccessibilityError::ApiDisabled, ReadFailure::Denied}}) {
        ax.nodes[3].error = error;
        ax.messages = 0;
        MenuTreeReader reader(ax, MenuTreeReader::statusItemLimits);
        EXPECT_EQ(reader.tree(FakeAccessibility::element(1), abandoned).error(), failure);
        EXPECT_EQ(ax.messages, 5);
    }
    abandoned.raise();
    ax.messages = 0;
    MenuTreeReader reader(ax, MenuTreeReader::statusItemLimits);
    EXPECT_EQ(reader.tree(FakeAccessibility::element(1), abandoned).error(), ReadFailure::Abandoned);
    EXPECT_EQ(ax.messages, 0);
}

TEST_F(MenuTreeReaderTest, anErrorInOneSlotSpoilsNothingElse) {
    makeNested(2);
    for (const auto error : {AccessibilityError::CannotComplete, AccessibilityError::ApiDisabled}) {
        ax.nodes[2].slotErrors = {{"AXHelp", error}, {"AXMenuItemCmdChar", error}};
        MenuTreeReader reader(ax, MenuTreeReader::statusItemLimits);
        const auto tree = reader.tree(FakeAccessibility::element(1), abandoned);
        ASSERT_TRUE(tree);
        EXPECT_EQ(countOf(*tree), 4);
        EXPECT_EQ(tree->children.front().title, "Item 1");
        EXPECT_FALSE(tree->children.front().shortcut);
    }
}

TEST_F(MenuTreeReaderTest, findsTheStatusItemsBelowGroups) {
    ax.nodes[7].attributes["AXExtrasMenuBar"] = FakeAccessibility::element(100);
    make(100, "AXMenuBar");
    make(101, "AXGroup");
    ax.setChildren(100, {101, 103});
    ax.setChildren(101, {102});
    ax.makeItem(102, 900, "a");
    ax.nodes[102].attributes["AXHelp"] = "Helps";
    ax.makeItem(103, 930);
    ax.nodes[103].attributes["AXTitle"] = "";
    ax.nodes[103].attributes["AXValue"] = "3 unread";
    const std::vector<RunningApplication> running{{"org.example.a", 7, "A"}, {"org.example.b", 8, "B"}};
    const auto items = LiveStatusItems::items(ax, running, "org.example.a", abandoned);
    ASSERT_TRUE(items);
    ASSERT_EQ(items->size(), 2u);
    EXPECT_EQ((*items)[0].candidate(), (PinnedStatusItemReference::Candidate{"a", "Helps"}));
    EXPECT_EQ((*items)[0].frame, (Rect{900, 7, 24, 24}));
    EXPECT_EQ((*items)[1].displayName(), "3 unread");
    EXPECT_EQ((*items)[1].index, 1u);
    ax.nodes[8].error = AccessibilityError::CannotComplete;
    EXPECT_EQ(LiveStatusItems::items(ax, running, "org.example.b", abandoned).error(), ReadFailure::TimedOut);
    EXPECT_EQ(LiveStatusItems::all(ax, running, abandoned)->size(), 2u) << "one that hangs spoils nothing";
}

TEST(MenuShortcut, isWrittenAsInAMenu) {
    struct Case {
        std::optional<std::string> character;
        std::optional<int> modifiers;
        std::optional<std::string> text;
    };

    for (const auto& [character, modifiers, text] :
         {Case{std::nullopt, 0, std::nullopt}, Case{"", 0, std::nullopt}, Case{"N", 0, "⌘N"},
          Case{"N", std::nullopt, "⌘N"}, Case{"N", 1, "⇧⌘N"}, Case{"N", 2, "⌥⌘N"}, Case{"N", 4, "⌃⌘N"},
          Case{"N", 8, "N"}, Case{"N", 15, "⌃⌥⇧N"}})
        EXPECT_EQ(menuShortcut(character, modifiers), text);
}

} // namespace
} // namespace tavrin
