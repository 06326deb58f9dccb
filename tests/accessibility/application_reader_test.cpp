#include "accessibility/application_reader.h"
#include "support/fake_accessibility.h"

#include <gtest/gtest.h>

namespace tavrin {
namespace {

constexpr ProcessIdentifier process = 9000;
constexpr int bar = 9001;

class ApplicationReaderTest : public testing::Test {
  protected:
    ApplicationReaderTest() {
        ax_.nodes[process].attributes["AXExtrasMenuBar"] = FakeAccessibility::element(bar);
        ax_.nodes[bar].attributes["AXRole"] = "AXMenuBar";
    }

    std::expected<std::vector<MenuBarElement>, ReadFailure>
    read(ApplicationReader::Bars bars = ApplicationReader::Bars::Extras) {
        return ApplicationReader(ax_, Seconds{0.5}, abandoned_).readItems(process, bars);
    }

    std::vector<int> readNumbers() {
        std::vector<int> numbers;
        for (const auto& item : read().value()) numbers.push_back(FakeAccessibility::number(item.element));
        return numbers;
    }

    /// A chain of groups below the bar that ends in an item at the given depth.
    void nest(int depth) {
        for (int level = 0; level < depth; ++level) ax_.setChildren(level == 0 ? bar : level, {level + 1});
        ax_.makeItem(depth, 100);
    }

    FakeAccessibility ax_;
    AbandonFlag abandoned_;
};

TEST_F(ApplicationReaderTest, readsItemsInOrderWithOneMessageEach) {
    ax_.setChildren(bar, {1, 2, 5});
    ax_.setChildren(2, {3, 4});
    for (const int item : {1, 3, 4, 5}) ax_.makeItem(item, item * 30);
    ax_.setChildren(5, {6}); // an item's menu is not looked into
    EXPECT_EQ(readNumbers(), (std::vector{1, 3, 4, 5}));
    EXPECT_EQ(ax_.messages, 1 + 6) << "the extras bar, then the bar, a group and four items";
}

TEST_F(ApplicationReaderTest, applesApplicationsMayUseTheirOnlyMenuBar) {
    auto& attributes = ax_.nodes[process].attributes;
    attributes["AXMenuBar"] = attributes.extract("AXExtrasMenuBar").mapped();
    ax_.setChildren(bar, {1});
    ax_.makeItem(1, 10);
    EXPECT_EQ(read()->size(), 0u);
    EXPECT_EQ(read(ApplicationReader::Bars::ExtrasElseMenuBar)->size(), 1u);
}

TEST_F(ApplicationReaderTest, titlesInARegularApplicationsMenuBarAreNoItems) {
    constexpr auto bars = ApplicationReader::Bars::ExtrasElseExtrasInMenuBar;
    ax_.setChildren(bar, {1, 2});
    for (const int element : {1, 2}) ax_.makeItem(element, element * 30);
    ax_.nodes[2].attributes["AXSubrole"] = "AXMenuExtra";
    EXPECT_EQ(read(bars)->size(), 2u) << "in the bar of the extras nothing else stands";
    auto& attributes = ax_.nodes[process].attributes;
    attributes["AXMenuBar"] = attributes.extract("AXExtrasMenuBar").mapped();
    const auto items = read(bars);
    ASSERT_EQ(items->size(), 1u);
    EXPECT_EQ(items->front().element, FakeAccessibility::element(2));
}

TEST_F(ApplicationReaderTest, walksNoDeeperThanItsLimit) {
    nest(12);
    EXPECT_EQ(readNumbers().size(), 1u);
    nest(13);
    ax_.nodes[12].attributes["AXRole"] = "AXGroup";
    EXPECT_EQ(readNumbers().size(), 0u);
}

TEST_F(ApplicationReaderTest, hostileTreesEnd) {
    ax_.setChildren(bar, {1, 1, bar, 2});
    ax_.makeItem(1, 10);
    ax_.setChildren(2, {bar, 2, 1});
    EXPECT_EQ(readNumbers(), std::vector{1}) << "an element reached twice counts once";

    std::vector<int> many;
    for (int i = 100; i < 400; ++i) ax_.makeItem(many.emplace_back(i), i);
    ax_.setChildren(bar, many);
    EXPECT_EQ(read()->size(), 128u);

    std::vector<int> groups;
    for (int i = 1000; i < 3000; ++i) ax_.setChildren(groups.emplace_back(i), {i + 2000});
    ax_.setChildren(bar, groups);
    ax_.messages = 0;
    EXPECT_EQ(read()->size(), 0u);
    EXPECT_EQ(ax_.messages, 1 + 512);
}

TEST_F(ApplicationReaderTest, failuresEndTheReadingAtOnceAndWhole) {
    ax_.setChildren(bar, {1, 2, 3});
    for (const int item : {1, 2, 3}) ax_.makeItem(item, item * 30);
    ax_.nodes[2].error = AccessibilityError::InvalidElement;
    EXPECT_EQ(readNumbers(), (std::vector{1, 3})) << "an element that is gone is no failure";

    ax_.messages = 0;
    ax_.nodes[2].error = AccessibilityError::CannotComplete;
    EXPECT_EQ(read().error(), ReadFailure::TimedOut);
    EXPECT_EQ(ax_.messages, 4) << "nothing is asked after the time-out";
    ax_.nodes[2].error = AccessibilityError::ApiDisabled;
    EXPECT_EQ(read().error(), ReadFailure::Denied);

    ax_.nodes[process].error = AccessibilityError::CannotComplete;
    ax_.messages = 0;
    EXPECT_EQ(read(ApplicationReader::Bars::ExtrasElseMenuBar).error(), ReadFailure::TimedOut);
    EXPECT_EQ(ax_.messages, 1) << "a hung application costs one time-out";

    abandoned_.raise();
    ax_.messages = 0;
    EXPECT_EQ(read().error(), ReadFailure::Abandoned);
    EXPECT_EQ(ax_.messages, 0);
}

TEST_F(ApplicationReaderTest, anErrorInOneSlotMakesThatAttributeAbsent) {
    ax_.setChildren(bar, {1, 2});
    for (const int item : {1, 2}) ax_.makeItem(item, item * 30, "id");
    ax_.nodes[1].attributes["AXTitle"] = "One";
    for (const auto error : {AccessibilityError::CannotComplete, AccessibilityError::ApiDisabled,
                             AccessibilityError::InvalidElement}) {
        ax_.nodes[1].slotErrors = {{"AXIdentifier", error}, {"AXSize", error}};
        const auto items = read();
        ASSERT_TRUE(items);
        ASSERT_EQ(items->size(), 2u);
        EXPECT_FALSE(items->front().rawIdentifier);
        EXPECT_FALSE(items->front().reportedFrame);
        EXPECT_EQ(items->front().title, "One");
        EXPECT_EQ(items->back().rawIdentifier, "id");
    }
    ax_.nodes[process].slotErrors = {{"AXExtrasMenuBar", AccessibilityError::CannotComplete}};
    EXPECT_EQ(read().error(), ReadFailure::TimedOut)
        << "of a message for one attribute it is the message's own";
}

TEST_F(ApplicationReaderTest, valuesOfTheWrongTypeAreAbsent) {
    ax_.setChildren(bar, {1});
    ax_.makeItem(1, 10);
    auto& attributes = ax_.nodes[1].attributes;
    attributes["AXTitle"] = 3.0;
    attributes["AXPosition"] = "left";
    attributes["AXIdentifier"] = std::monostate{};
    const auto items = read();
    ASSERT_EQ(items->size(), 1u);
    EXPECT_FALSE(items->front().title);
    EXPECT_FALSE(items->front().rawIdentifier);
    EXPECT_EQ(items->front().frame(), Rect{});
}

} // namespace
} // namespace tavrin
