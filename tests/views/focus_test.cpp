#include "views/kept_focus.h"
#include "views/view_builders.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace tavrin {
namespace {

using At = std::optional<ViewPath>;

View focusable(const std::string& name) {
    auto view = row({text(name), button("Move", [] {})});
    view.isFocusable = true;
    return view;
}

View disabled(View view) {
    view.isEnabled = false;
    return view;
}

std::vector<View> rows(std::size_t count) {
    std::vector<View> made;
    for (std::size_t i = 0; i < count; ++i) made.push_back(focusable(std::to_string(i)));
    return made;
}

/// A heading, two cards of rows in a Scroll, and a button below them.
View lists(std::size_t first, std::size_t second) {
    return column({text("Heading"), scroll(column({card(rows(first)), card(rows(second))}), 300),
                   button("Done", [] {}), disabled(button("Off", [] {}))});
}

View item(const std::string& name) {
    auto view = focusable(name);
    view.dragValue = name;
    return view;
}

View itemCard(const std::string& names) {
    std::vector<View> items{text("Heading")};
    for (const char name : names) items.push_back(item(std::string(1, name)));
    return card(std::move(items));
}

/// Two lists of items, each with a name of one letter, below what else there is; then a button.
View items(const std::string& first, const std::string& second, std::vector<View> above = {}) {
    above.push_back(scroll(column({itemCard(first), itemCard(second)}), 300));
    above.push_back(button("Done", [] {}));
    return column(std::move(above));
}

FocusPlaces places(const View& view) { return focusPlacesOf(view); }

} // namespace

TEST(Focus, isTakenByWhatAPersonCanUse) {
    struct Case {
        std::string what;
        View view;
        bool withTab;
        bool whenPressed;
        bool isListed;
    };

    auto pressable = column({text("Tray")});
    pressable.onPress = [] {};
    const std::vector<Case> cases{
        {"text", text("Words"), false, false, false},
        {"a button", button("Done", [] {}), true, false, false},
        {"a button that does nothing", button("Done", nullptr), true, false, false},
        {"a checkbox", checkbox("Always", true, [] {}), true, false, false},
        {"a recorder", shortcutRecorder(nullptr), true, false, false},
        {"a stack that can be pressed", pressable, true, true, false},
        {"a focusable row", focusable("Row"), true, true, true},
        {"a disabled row", disabled(focusable("Row")), false, false, false},
        {"a disabled button", disabled(button("Done", [] {})), false, false, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(takesFocus(c.view), c.withTab) << c.what;
        EXPECT_EQ(takesFocusWhenPressed(c.view), c.whenPressed) << c.what;
        EXPECT_EQ(focusPlaceOf(c.view, {}).isListed, c.isListed) << c.what;
    }
}

TEST(Focus, tabGoesRoundThroughEverything) {
    const auto all = places(lists(1, 1));
    const std::vector<ViewPath> order{{1, 0, 0, 0}, {1, 0, 0, 0, 1}, {1, 0, 1, 0}, {1, 0, 1, 0, 1}, {2}};
    At at;
    for (const auto& next : order) EXPECT_EQ(at = focusBeside(all, at, FocusStep::Next), next);
    EXPECT_EQ(focusBeside(all, at, FocusStep::Next), order.front());
    EXPECT_EQ(focusBeside(all, order.front(), FocusStep::Previous), order.back());
    EXPECT_EQ(focusBeside(all, std::nullopt, FocusStep::Previous), order.back());
    EXPECT_EQ(focusBeside(all, ViewPath{1, 0, 0, 0, 1}, FocusStep::Previous), order.front());
    EXPECT_EQ(focusBeside(places(text("Words")), std::nullopt, FocusStep::Next), std::nullopt);
}

TEST(Focus, upAndDownStayInTheList) {
    struct Case {
        At from;
        At down;
        At up;
    };

    const auto all = places(column({focusable("Outside"), scroll(column({card(rows(2)), card(rows(1))}), 300),
                                    card({focusable("Apart"), button("Done", [] {})})}));
    const ViewPath first{1, 0, 0, 0};
    const ViewPath second{1, 0, 0, 1};
    const ViewPath third{1, 0, 1, 0};
    const std::vector<Case> cases{
        {first, second, first},
        {second, third, first},
        {third, third, second},
        {ViewPath{1, 0, 0, 1, 1}, third, second}, // the button in the second row
        {ViewPath{2, 1}, ViewPath{2, 1}, ViewPath{2, 0}},
        {std::nullopt, ViewPath{0}, ViewPath{2, 0}},
    };
    for (std::size_t i = 0; i < cases.size(); ++i) {
        EXPECT_EQ(focusInList(all, cases[i].from, FocusStep::Next), cases[i].down) << i;
        EXPECT_EQ(focusInList(all, cases[i].from, FocusStep::Previous), cases[i].up) << i;
    }
    EXPECT_EQ(focusInList(places(lists(0, 0)), ViewPath{2}, FocusStep::Next), std::nullopt);
}

TEST(Focus, goesToTheNearestByPlaceWhenItsViewIsGone) {
    struct Case {
        std::string what;
        View tree;
        ViewPath from;
        At to;
    };

    const std::vector<Case> cases{
        {"the row that took its place", lists(2, 1), {1, 0, 0, 1}, ViewPath{1, 0, 0, 1}},
        {"the row before, when it was the last", lists(2, 1), {1, 0, 0, 2}, ViewPath{1, 0, 0, 1}},
        {"the row around a button that is gone", lists(1, 1), {1, 0, 0, 0, 5}, ViewPath{1, 0, 0, 0}},
        {"the other list, when its own is empty", lists(0, 2), {1, 0, 0, 1}, ViewPath{1, 0, 1, 0}},
        {"the button, when no row is left", lists(0, 0), {1, 0, 0, 1}, ViewPath{2}},
        {"the other button, when its own is disabled", lists(3, 3), {3}, ViewPath{2}},
        {"nowhere, when nothing takes it", text("Words"), {1, 0}, std::nullopt},
    };
    for (const auto& c : cases) EXPECT_EQ(focusNear(places(c.tree), c.from), c.to) << c.what;
}

TEST(Focus, goesBackToWhereItWasPut) {
    KeptFocus focus;
    EXPECT_EQ(focus.settleIn(places(lists(1, 1))), std::nullopt) << "nobody has put it anywhere";

    focus.moveTo({1, 0, 0, 2});
    EXPECT_EQ(focus.settleIn(places(lists(2, 1))), (ViewPath{1, 0, 0, 1}));
    focus.seenAt(ViewPath{1, 0, 0, 1});
    EXPECT_EQ(focus.settleIn(places(text("Words"))), std::nullopt);
    focus.seenAt(std::nullopt);
    EXPECT_EQ(focus.settleIn(places(lists(3, 1))), (ViewPath{1, 0, 0, 2}));

    focus.seenAt(ViewPath{2});
    EXPECT_EQ(focus.settleIn(places(lists(3, 1))), ViewPath{2}) << "the person has moved it meanwhile";
    focus.seenAt(std::nullopt);
    EXPECT_EQ(focus.settleIn(places(lists(3, 1))), std::nullopt) << "it was given up";
}

TEST(Focus, followsItsItemThroughItsList) {
    struct Case {
        std::string what;
        View tree;
        ViewPath inItem; // from the item to the view that has the focus
        At to;
    };

    const std::vector<Case> cases{
        {"one came above", items("xabc", "de"), {}, ViewPath{0, 0, 0, 3}},
        {"one above went", items("bc", "de"), {}, ViewPath{0, 0, 0, 1}},
        {"the list was sorted", items("cab", "de"), {}, ViewPath{0, 0, 0, 3}},
        {"its button, too", items("xabc", "de"), {1}, ViewPath{0, 0, 0, 3, 1}},
        {"something came above the lists",
         items("xabc", "de", {text("Oh"), button("Retry", [] {})}),
         {},
         ViewPath{2, 0, 0, 3}},
        {"it went to the other list", items("ac", "bde"), {}, ViewPath{0, 0, 0, 2}},
        {"and was the last one", items("a", "bde"), {}, ViewPath{0, 0, 0, 1}},
        {"and its button goes with none", items("ac", "bde"), {1}, ViewPath{0, 0, 0, 2, 1}},
    };
    for (const auto& c : cases) {
        ViewPath from{0, 0, 0, 2}; // b
        from.insert(from.end(), c.inItem.begin(), c.inItem.end());
        KeptFocus focus;
        focus.settleIn(places(items("abc", "de")));
        focus.seenAt(from);
        EXPECT_EQ(focus.settleIn(places(c.tree)), c.to) << c.what;
        EXPECT_EQ(focus.standsAt(), c.to) << c.what;
    }
}

TEST(Focus, staysWithTheItemThatTookThePlace) {
    KeptFocus focus;
    focus.settleIn(places(items("abc", "de")));
    focus.moveTo({0, 0, 0, 2});
    focus.settleIn(places(items("ac", "bde")));
    EXPECT_EQ(focus.settleIn(places(items("xac", "bde"))), (ViewPath{0, 0, 0, 3})) << "c";
    EXPECT_EQ(focus.settleIn(places(items("xabc", "de"))), (ViewPath{0, 0, 0, 4})) << "c, though b is back";
    EXPECT_EQ(focus.settleIn(places(text("Reading"))), std::nullopt);
    EXPECT_EQ(focus.settleIn(places(items("cabx", "de"))), (ViewPath{0, 0, 0, 1})) << "c after all were gone";
}

TEST(Focus, isOnlyLentToAnItemByAButton) {
    const auto off = [](const std::string& names) {
        auto tree = items(names, "");
        tree.children.back().isEnabled = false;
        return places(tree);
    };
    KeptFocus focus;
    focus.settleIn(places(items("ab", "")));
    focus.moveTo({1});
    EXPECT_EQ(focus.settleIn(off("ab")), (ViewPath{0, 0, 0, 1})) << "a";
    EXPECT_EQ(focus.settleIn(off("xab")), (ViewPath{0, 0, 0, 2})) << "a still";
    EXPECT_EQ(focus.settleIn(places(items("xab", ""))), ViewPath{1}) << "the button again";
}

TEST(Focus, followsAControlByWhatItStays) {
    struct Case {
        std::string what;
        View tree;
        At to;
    };

    const auto named = [](View control, const std::string& identity) {
        control.identity = identity;
        return control;
    };
    const auto go = [&](const std::string& title) { return named(button(title, [] {}), "go"); };
    const std::vector<Case> cases{
        {"something came above", column({card(rows(1)), card(rows(1)), go("Go")}), ViewPath{2}},
        {"it has another title and place", column({card(rows(2)), row({text("Busy"), go("Stop")})}),
         ViewPath{1, 1}},
        {"another control has its place", column({go("Go"), named(button("Other", [] {}), "other")}),
         ViewPath{0}},
        {"it is disabled, and lends the focus to its neighbour",
         column({card(rows(1)), text("Oh"), row({button("Near", [] {}), disabled(go("Go"))})}),
         ViewPath{2, 0}},
    };
    for (const auto& c : cases) {
        KeptFocus focus;
        const auto before = places(column({card(rows(1)), go("Go")}));
        focus.settleIn(before);
        focus.seenAt(ViewPath{1});
        EXPECT_EQ(focus.settleIn(places(c.tree)), c.to) << c.what;
        focus.seenAt(c.to);
        EXPECT_EQ(focus.settleIn(before), ViewPath{1}) << "back after: " << c.what;
    }
}

} // namespace tavrin
