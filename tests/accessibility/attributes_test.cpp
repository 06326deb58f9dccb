#include "accessibility/attributes.h"
#include "platform/accessibility_names.h"
#include "support/fake_accessibility.h"

#include <array>
#include <gtest/gtest.h>
#include <limits>

namespace tavrin {
namespace {

constexpr Seconds timeout{0.5};
constexpr std::array names{ax::title, ax::value, ax::enabled, ax::position, ax::size, ax::children};

TEST(ReadFailures, areThoseOfTheMessageItself) {
    struct Case {
        AccessibilityError error;
        std::optional<ReadFailure> failure;
    };

    for (const auto& [error, failure] : {Case{AccessibilityError::CannotComplete, ReadFailure::TimedOut},
                                         {AccessibilityError::ApiDisabled, ReadFailure::Denied},
                                         {AccessibilityError::InvalidElement, std::nullopt},
                                         {AccessibilityError::NotImplemented, std::nullopt},
                                         {AccessibilityError::NoValue, std::nullopt}}) {
        FakeAccessibility accessibility;
        const auto element = FakeAccessibility::element(1);
        accessibility.nodes[1].error = error;
        const auto attributes = read(accessibility, element, names, timeout);
        const auto one = readOne<bool>(accessibility, element, ax::enabled, timeout);
        const auto actions = readActions(accessibility, element, timeout);
        EXPECT_EQ(accessibility.messages, 3);
        ASSERT_EQ(attributes.has_value(), !failure);
        ASSERT_EQ(one.has_value(), !failure);
        ASSERT_EQ(actions.has_value(), !failure);
        if (failure) {
            EXPECT_EQ(attributes.error(), failure);
            EXPECT_EQ(one.error(), failure);
            EXPECT_EQ(actions.error(), failure);
        } else {
            EXPECT_FALSE(attributes->as<std::string>(ax::title));
            EXPECT_FALSE(*one);
            EXPECT_TRUE(actions->empty());
        }
    }
}

TEST(ReadAttributes, haveTheirTypesOrAreAbsent) {
    FakeAccessibility accessibility;
    auto& held = accessibility.nodes[1].attributes;
    held["AXTitle"] = std::string();
    held["AXValue"] = std::string("on");
    held["AXPosition"] = Point{3, 4};
    held["AXChildren"] = true;
    const auto told = read(accessibility, FakeAccessibility::element(1), names, timeout);
    ASSERT_TRUE(told);
    EXPECT_EQ(told->as<std::string>(ax::title), "");
    EXPECT_EQ(told->firstText({ax::title, ax::enabled, ax::value}), "on");
    EXPECT_FALSE(told->isTrue(ax::enabled));
    EXPECT_TRUE(told->elements(ax::children).empty());
    EXPECT_FALSE(told->frame()) << "a place without a size";
    EXPECT_FALSE(told->as<std::string>(ax::help)) << "nobody asked for it";
    held["AXSize"] = Size{5, 6};
    EXPECT_EQ(read(accessibility, FakeAccessibility::element(1), names, timeout)->frame(),
              (Rect{3, 4, 5, 6}));
}

TEST(ReadAttributes, areWholeNumbersOnlyWhenTheyAre) {
    const auto integerOf = [](double number) {
        return Attributes(std::array{ax::value}, {AttributeValue(number)}).integer(ax::value);
    };
    EXPECT_EQ(integerOf(1), 1);
    EXPECT_EQ(integerOf(-3), -3);
    for (const double number : {0.5, 1e7, -1e300, std::numeric_limits<double>::infinity(),
                                std::numeric_limits<double>::quiet_NaN()})
        EXPECT_FALSE(integerOf(number)) << number;
}

TEST(ReadAttributes, ofAnAnswerWithAnotherCountAreAbsent) {
    const Attributes told(std::array{ax::title, ax::help}, {AttributeValue(std::string("only one"))});
    EXPECT_FALSE(told.as<std::string>(ax::title));
}

} // namespace
} // namespace tavrin
