#include "pins/menus/pinned_menu_node.h"
#include "pins/running/pinned_action_policy.h"
#include "pins/running/pinned_run_failure.h"
#include "seam/system/text_icu.h"

#include <gtest/gtest.h>

namespace tavrin {
namespace {

using PinnedActionPolicy::NodeExclusion;

const auto icu = mac_model::makeIcuText();

PinnedMenuNode item(const std::string& title, std::optional<std::string> identifier = std::nullopt) {
    PinnedMenuNode node;
    node.role = "AXMenuItem";
    node.title = title;
    node.identifier = std::move(identifier);
    node.isEnabled = true;
    node.actions = {"AXCancel", "AXPress"};
    return node;
}

/// The title of the one that matches; else how many do.
std::string matched(const PinnedMenuStep& step, const std::vector<PinnedMenuNode>& items) {
    PinnedMenuNode menu;
    menu.children = items;
    const auto match = PinnedMenuNode::match(step, menu.items(), *icu);
    if (const auto* const* one = std::get_if<const PinnedMenuNode*>(&match)) return *(*one)->title;
    const auto* many = std::get_if<PinnedMenuNode::Many>(&match);
    return std::to_string(many ? many->count : 0);
}

TEST(PinnedMenuNode, matchesByIdentifierThenByTitleAndNeverGuesses) {
    const std::vector menu{item("Sync Now", "sync"),
                           item("Open…", "open"),
                           item("Open"),
                           item("Twin", "t"),
                           item("Other", "t"),
                           item("  "),
                           item("…")};
    EXPECT_EQ(matched({"Anything", "sync"}, menu), "Sync Now") << "a renamed item is known by its identifier";
    EXPECT_EQ(matched({"sync now...", "gone"}, menu), "Sync Now");
    EXPECT_EQ(matched({"Other", "t"}, menu), "Other") << "a shared identifier says nothing";
    EXPECT_EQ(matched({"Neither", "t"}, menu), "0");
    EXPECT_EQ(matched({"Open", std::nullopt}, menu), "2");
    EXPECT_EQ(matched({"Open", "open"}, menu), "Open…");
    EXPECT_EQ(matched({"", std::nullopt}, menu), "0") << "an empty title means no separator";
    EXPECT_EQ(matched({"...", std::nullopt}, menu), "0");
}

TEST(PinnedMenuNode, seesThroughTheMenuOfAnItem) {
    auto submenu = item("");
    submenu.role = "AXMenu";
    submenu.title.reset();
    submenu.children = {item("A"), item(""), item("B")};
    auto parent = item("More");
    parent.children = {submenu};
    EXPECT_EQ(parent.items().size(), 3u);
    EXPECT_EQ(parent.labelledItems().size(), 2u);
}

TEST(PinnedActionPolicy, leavesOutWhatIsNoCommand) {
    const auto changed = [](const auto& change) {
        auto node = item("Dark Mode");
        change(node);
        return PinnedActionPolicy::exclusion(node);
    };
    EXPECT_EQ(changed([](auto&) {}), std::nullopt);
    for (const auto* role :
         {"AXCheckBox", "AXSwitch", "AXToggle", "AXSlider", "AXRadioButton", "AXIncrementor"}) {
        EXPECT_EQ(changed([&](auto& node) { node.role = role; }), NodeExclusion::Toggle);
        EXPECT_EQ(changed([&](auto& node) { node.subrole = role; }), NodeExclusion::Toggle);
    }
    EXPECT_EQ(changed([](auto& node) {
                  node.isChecked = true;
                  node.isEnabled = false;
              }),
              NodeExclusion::Toggle);
    EXPECT_EQ(changed([](auto& node) {
                  node.isEnabled = false;
                  node.actions.clear();
              }),
              NodeExclusion::Disabled);
    EXPECT_EQ(changed([](auto& node) { node.actions = {"AXPick"}; }), NodeExclusion::NotPressable);
    auto above = item("Above");
    above.isChecked = true;
    EXPECT_EQ(PinnedActionPolicy::exclusionForTrail(std::vector{above, item("Below")}), std::nullopt);
    above.role = "AXRadioButton";
    EXPECT_EQ(PinnedActionPolicy::exclusionForTrail(std::vector{above, item("Below")}),
              NodeExclusion::Toggle);
}

TEST(PinnedActionPolicy, knowsDisruptiveWordsOnlyAsWholeWords) {
    for (const auto* title : {"Quit", "QUIT Notes", "Log Out…", "Logout", "Sign-Out", "Turn  off",
                              "Shut\tDown", "Éject Disk", "Empty: delete!", "Stop", "Ｓｔｏｐ",
                              "Re-send (send)", "“Publish”", "Don’t stop", "🗑️Delete", "Stop️⏹"})
        EXPECT_TRUE(PinnedActionPolicy::looksDisruptive({{"Fine", {}}, {title, {}}}, *icu)) << title;
    for (const auto* title : {"Quite", "Stopwatch", "Sign", "Turn on", "Sender", "Clearance", "Unquit", "…",
                              "", "Beenden", "停止", "Turn the page off"})
        EXPECT_FALSE(PinnedActionPolicy::looksDisruptive({{title, {}}, {"off", {}}}, *icu)) << title;
}

TEST(PinnedRunFailure, saysWhatHappened) {
    using F = PinnedRunFailure;
    const std::vector<std::pair<F, std::string>> cases{
        {{F::AppNotRunning{"Notes"}}, "Notes isn't running. Open it and try again."},
        {{F::StatusItemMissing{"Notes"}}, "Notes is running but its menu bar item couldn't be found."},
        {{F::MenuDidNotOpen{"Notes"}}, "Notes's menu didn't open. It may show a panel instead of a menu."},
        {{F::ItemChanged{"Sync", {}}}, "This item changed: \"Sync\" is no longer in the menu."},
        {{F::ItemChanged{"Sync", {"A", "B"}}},
         "This item changed: \"Sync\" is no longer in the menu. Current choices: A, B."},
        {{F::ItemChanged{"S", {"1", "2", "3", "4", "5", "6", "7"}}},
         "This item changed: \"S\" is no longer in the menu. Current choices: 1, 2, 3, 4, 5, 6."},
        {{F::Ambiguous{"Sync", 2}}, "2 items are called \"Sync\", so Tavrin won't guess."},
        {{F::Excluded{"Dark Mode", NodeExclusion::Toggle}},
         "\"Dark Mode\" can't run: switches, checkboxes and sliders can't be pinned."},
        {{F::Excluded{"X", NodeExclusion::Disabled}}, "\"X\" can't run: disabled right now."},
        {{F::Excluded{"X", NodeExclusion::NotPressable}}, "\"X\" can't run: can't be pressed."},
        {{F::PressFailed{"Sync"}}, "\"Sync\" didn't respond to the press."},
        {{F::TimedOut{"Notes"}}, "Notes isn't responding."},
        {{F::AccessibilityDenied{}}, "Tavrin needs Accessibility access to open other apps' menus."}};
    for (const auto& [failure, message] : cases) EXPECT_EQ(failure.message(), message);
}

} // namespace
} // namespace tavrin
