#include "views/laid_out_view.h"
#include "views/text_metrics.h"
#include "views/view_builders.h"
#include "views/view_queries.h"

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace mac_model {
namespace {

using namespace tavrin;

constexpr double tolerance = 0.01;

bool contains(Rect outer, Rect inner) {
    return inner.minX() >= outer.minX() - tolerance && inner.maxX() <= outer.maxX() + tolerance &&
           inner.minY() >= outer.minY() - tolerance && inner.maxY() <= outer.maxY() + tolerance;
}

bool overlap(Rect left, Rect right) {
    return left.minX() < right.maxX() - tolerance && right.minX() < left.maxX() - tolerance &&
           left.minY() < right.maxY() - tolerance && right.minY() < left.maxY() - tolerance;
}

void expectSound(const LaidOutView& view, const std::string& tree) {
    for (std::size_t i = 0; i < view.children.size(); ++i) {
        if (!is<kinds::Scroll>(view.view))
            EXPECT_TRUE(contains(view.frame, view.children[i].frame))
                << "child " << i << " sticks out in " << tree;
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(overlap(view.children[i].frame, view.children[j].frame))
                << j << ", " << i << " in " << tree;
        expectSound(view.children[i], tree);
    }
}

LaidOutView shown(const View& view, double width) {
    const auto size = measured(view, width);
    return laidOut(view, {0, 0, size.width, size.height});
}

const std::string sentence = "Tavrin needs Accessibility access to move other apps' menu bar items.";

View randomView(std::mt19937& random, int depth) {
    const auto pick = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    const auto children = [&] {
        std::vector<View> made;
        for (int i = pick(4); i >= 0; --i) made.push_back(randomView(random, depth - 1));
        return made;
    };
    const StackOptions options{
        .spacing = double(pick(12)), .padding = double(pick(12)), .isCentered = pick(2) == 0};
    switch (pick(depth > 0 ? 10 : 6)) {
    case 0:
        return text(sentence.substr(0, std::size_t(5 + pick(60))), {.isCentered = pick(2) == 0});
    case 1:
        return button("Press", [] {});
    case 2:
        return symbol("star", 20);
    case 3:
        return divider();
    case 4:
        return spacer();
    case 5:
        return text("項目を選ぶ");
    case 6:
        return row(children(), options);
    case 7:
        return card(children(), options);
    default:
        return column(children(), options);
    }
}

} // namespace

TEST(ViewLayout, keepsRandomTreesInsideAndApart) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        std::mt19937 random(seed);
        auto root = column({randomView(random, 4)}, {.padding = 10});
        // As wide as it wants: nothing is squeezed.
        expectSound(shown(root, 4000), "seed " + std::to_string(seed));
    }
}

TEST(ViewLayout, wrapsTextToTheWidthThatIsOffered) {
    const auto wide = measured(text(sentence), 1000);
    const auto narrow = measured(text(sentence), 150);
    EXPECT_EQ(wide.height, lineHeightOf(TextStyle::Body));
    EXPECT_GE(narrow.height, 3 * wide.height);
    EXPECT_LE(narrow.width, 150);

    struct Case {
        std::string text;
        std::vector<std::string> lines;
    };

    for (const auto& [text, lines] :
         std::vector<Case>{{"", {""}},
                           {"one two", {"one two"}},
                           {"first\n\nthird", {"first", "", "third"}},
                           {"Configure configure", {"Configure", "configure"}},
                           {"incomprehensibilities", {"incomprehe", "nsibilities"}},
                           {"日本語の項目です", {"日本語の項", "目です"}},
                           {"\xFF\xFE", {"\xFF\xFE"}}})
        EXPECT_EQ(wrapped(text, TextStyle::Body, 75), lines) << text;
}

TEST(ViewLayout, narrowsTextBeforeControls) {
    const auto laid =
        shown(row({text(sentence), button("Open System Settings", [] {})}, {.spacing = 8}), 320);
    const auto free = measured(button("Open System Settings", [] {}), 1000);
    expectSound(laid, "a row of text and a button");
    EXPECT_EQ(laid.children[1].frame.width, free.width);
    EXPECT_GT(laid.children[0].lines.size(), 1U);
    EXPECT_LE(laid.frame.width, 320);
}

TEST(ViewLayout, sharesRoomAndPlaces) {
    const auto spread = laidOut(row({text("Name"), spacer(), checkbox("", false, nullptr)}, {.padding = 10}),
                                {100, 50, 300, 40});
    EXPECT_EQ(spread.children[2].frame.maxX(), 390);
    EXPECT_EQ(spread.children[0].frame.minX(), 110);

    const auto centred =
        laidOut(column({divider(), symbol("star", 20)}, {.isCentered = true}), {0, 0, 200, 100});
    EXPECT_EQ(centred.children[0].frame.width, 200);
    EXPECT_NEAR(centred.children[1].frame.midX(), 100, 0.5);
}

TEST(ViewLayout, scrollsWhatIsTooTall) {
    std::vector<View> rows;
    for (int i = 0; i < 40; ++i) rows.push_back(button("Row " + std::to_string(i), [] {}));
    const auto list = scroll(column(std::move(rows)), 200);
    const auto tree = column({text("Above"), list, text("Below")}, {.padding = 10, .width = 200});
    auto laid = shown(tree, 400);
    expectSound(laid, "a column with a scroll");
    EXPECT_EQ(laid.children[1].frame.height, 200);
    EXPECT_LE(laid.children[1].frame.maxY(), laid.children[2].frame.minY());

    // A view that is scrolled away can't be pointed at where it would be.
    const ViewPath last{1, 0, 39};
    const auto away = viewAt(laid, last)->frame.middle();
    EXPECT_NE(controlAt(laid, away), last);
    reveal(laid, last);
    EXPECT_EQ(controlAt(laid, viewAt(laid, last)->frame.middle()), last);

    auto changed = shown(tree, 400);
    carryScrolling(laid, changed);
    EXPECT_EQ(changed.children[1].scrollOffset, laid.children[1].scrollOffset);
    // In too little room the part that scrolls gives way, not the lines around it.
    const auto squeezed = laidOut(tree, {0, 0, 200, 150});
    expectSound(squeezed, "a squeezed column");
}

} // namespace mac_model
