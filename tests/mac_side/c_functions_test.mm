// Each C function by itself at its worst: an error, nothing, or a value of another type than its header says.
#include "mac_side/mac_side_fixture.h"
#include "mac_side/shim/told.h"
#include "platform/accessibility.h"
#include "platform/defaults.h"
#include "platform/events.h"
#include "platform/hot_keys.h"
#include "platform/keyboard.h"
#include "platform/screens.h"
#include "platform/window_server.h"

#include <ApplicationServices/ApplicationServices.h>
#include <array>
#include <atomic>
#include <string>
#include <vector>

namespace mac_side {

namespace {

constexpr auto noValue = AccessibilityError::NoValue;
constexpr auto timedOut = AccessibilityError::CannotComplete;

std::int32_t code(AccessibilityError error) { return static_cast<std::int32_t>(error); }

id otherElement() { return (__bridge_transfer id)(CFTypeRef)AXUIElementCreateApplication(2); }

constexpr int rangeType = 4; // kAXValueTypeCFRange

class CFunctionsTest : public MacSideTest {
  protected:
    AccessibilityElement element = platform.accessibility.application(1);

    AttributeResult attributeWhen(Told told) {
        const Telling telling("AXUIElementCopyAttributeValue", told);
        return platform.accessibility.attribute(element, "AXTitle");
    }

    auto attributesWhen(Told told) {
        const Telling telling("AXUIElementCopyMultipleAttributeValues", told);
        static constexpr std::array<std::string_view, 2> names{"AXTitle", "AXRole"};
        return platform.accessibility.attributes(element, names);
    }

    auto actionsWhen(Told told) {
        const Telling telling("AXUIElementCopyActionNames", told);
        return platform.accessibility.actionNames(element);
    }
};

TEST_F(CFunctionsTest, anAttributeWithoutAValueIsAnError) {
    EXPECT_EQ(attributeWhen({0, nil}).error(), noValue);
    EXPECT_EQ(attributeWhen({0, NSNull.null}).error(), noValue);
    EXPECT_EQ(attributeWhen({code(timedOut), nil}).error(), timedOut);
    EXPECT_EQ(attributeWhen({code(timedOut), @"left behind"}).error(), timedOut);
    EXPECT_EQ(attributeWhen({-1, nil}).error(), AccessibilityError{-1}) << "one that no header lists";
    EXPECT_EQ(attributeWhen({0, tavrinValueOf(kAXValueTypeAXError, code(timedOut))}).error(), timedOut);
    EXPECT_EQ(attributeWhen({0, tavrinValueOf(kAXValueTypeAXError, 0)}).error(), AccessibilityError::Failure);
}

TEST_F(CFunctionsTest, anAttributeOfATypeThatNobodyListsIsThere) {
    const AttributeValue unlisted = std::monostate{};
    EXPECT_EQ(attributeWhen({0, [NSDate date]}), unlisted);
    EXPECT_EQ(attributeWhen({ 0, @{} }), unlisted);
    EXPECT_EQ(attributeWhen({ 0, @[ @"a", @"b" ] }), unlisted);
    EXPECT_EQ(attributeWhen({0, tavrinValueOf(rangeType, 0)}), unlisted);
    EXPECT_EQ(attributeWhen({ 0, @[] }), AttributeValue(std::vector<AccessibilityElement>()));
}

TEST_F(CFunctionsTest, anAttributeIsReadWhateverItsTypeIs) {
    EXPECT_EQ(attributeWhen({0, [NSNumber numberWithInt:7]}), AttributeValue(7.0));
    EXPECT_EQ(attributeWhen({0, [NSNumber numberWithBool:YES]}), AttributeValue(true));
    EXPECT_EQ(attributeWhen({0, [[NSAttributedString alloc] initWithString:@"attributed"]}),
              AttributeValue(std::string("attributed")));
    const auto elements = attributeWhen({ 0, @[ otherElement(), @"no element", otherElement() ] });
    EXPECT_EQ(std::get<std::vector<AccessibilityElement>>(*elements).size(), 2u);
}

TEST_F(CFunctionsTest, aListOfValuesHasASlotForEachName) {
    id failed = tavrinValueOf(kAXValueTypeAXError, code(timedOut));
    const auto slots = attributesWhen({ 0, @[ failed, @"AXButton" ] });
    ASSERT_TRUE(slots);
    EXPECT_EQ(slots->at(0).error(), timedOut);
    EXPECT_EQ(slots->at(1), AttributeValue(std::string("AXButton")));
    EXPECT_EQ(attributesWhen({ 0, @[ NSNull.null, @"AXButton" ] })->at(0).error(), noValue);
    EXPECT_EQ(attributesWhen({ 0, @[ @"AXButton" ] }).error(), AccessibilityError::Failure);
    EXPECT_EQ(attributesWhen({ 0, @[ @"a", @"b", @"c" ] }).error(), AccessibilityError::Failure);
    EXPECT_EQ(attributesWhen({0, nil}).error(), AccessibilityError::Failure);
    EXPECT_EQ(attributesWhen({code(timedOut), nil}).error(), timedOut);
}

TEST_F(CFunctionsTest, actionsAreTheTextsAmongTheNames) {
    EXPECT_EQ(actionsWhen({ 0, @[ @"AXPress", NSNull.null ] }), std::vector<std::string>{"AXPress"});
    EXPECT_EQ(actionsWhen({0, nil}), std::vector<std::string>());
    EXPECT_EQ(actionsWhen({code(timedOut), nil}).error(), timedOut);
}

TEST_F(CFunctionsTest, whatIsToldOnAnotherThreadIsHeardOnTheMainOne) {
    std::atomic<int> heard = 0;
    const auto trust = platform.accessibility.onTrustListChanged(
        [&] { heard += platform.scheduler.isMainThread() ? 1 : 100; });
    const auto screens =
        platform.screens.onChanged([&] { heard += platform.scheduler.isMainThread() ? 1 : 100; });
    auto elsewhere = platform.scheduler.makeSerialQueue("elsewhere");
    elsewhere->post([] {
        [NSDistributedNotificationCenter.defaultCenter postNotificationName:@"com.apple.accessibility.api"
                                                                     object:nil];
        [NSNotificationCenter.defaultCenter
            postNotificationName:NSApplicationDidChangeScreenParametersNotification
                          object:nil];
    });
    EXPECT_TRUE(until([&] { return heard >= 2; }));
    EXPECT_EQ(heard, 2);
}

TEST_F(CFunctionsTest, eventsThatCannotBeMadeAreNone) {
    const Telling source("CGEventSourceCreate", {});
    const Telling place("CGEventCreate", {});
    const Telling mouse("CGEventCreateMouseEvent", {});
    const Telling key("CGEventCreateKeyboardEvent", {});
    EXPECT_FALSE(platform.events.createSource({}));
    EXPECT_FALSE(platform.events.create({}));
    EXPECT_FALSE(platform.events.pointerLocation());
    EXPECT_FALSE(platform.events.postKeyToProcess({53, KeyMotion::Down}, 1));
}

TEST_F(CFunctionsTest, hotKeysThatAreRefusedSayWhy) {
    {
        const Telling refused("RegisterEventHotKey", {-9878, nil});
        EXPECT_EQ(platform.hotKeys.registerHotKey(40, 0, {1, 1}).error(), -9878);
    }
    const Telling notInstalled("InstallEventHandler", {-50, nil});
    EXPECT_FALSE(platform.hotKeys.installPressHandler([](auto) { return HotKeys::Handling::Handled; }));
    const auto listed = [this](Told told) {
        const Telling telling("CopySymbolicHotKeys", told);
        return platform.hotKeys.symbolicHotKeys();
    };
    EXPECT_TRUE(listed({-50, nil}).empty());
    EXPECT_TRUE(listed({0, nil}).empty());
    const auto odd = listed({ 0, @[ @"no entry", @{@"kHISymbolicHotKeyCode" : @"no number"} ] });
    ASSERT_EQ(odd.size(), 1u);
    EXPECT_FALSE(odd[0].code || odd[0].isEnabled || odd[0].modifiers);
}

TEST_F(CFunctionsTest, keysOfALayoutThatIsNotThereHaveNoCharacters) {
    EXPECT_EQ(platform.keyboard.character(40), "") << "no input source";
    const Telling source("TISCopyCurrentKeyboardLayoutInputSource", {0, [[NSObject alloc] init]});
    {
        const Telling none("TISGetInputSourceProperty", {});
        EXPECT_EQ(platform.keyboard.character(40), "");
    }
    const Telling failing("UCKeyTranslate", {-50, nil});
    EXPECT_EQ(platform.keyboard.character(40), "");
    const Telling other("TISGetInputSourceProperty", {0, @"no data"});
    EXPECT_EQ(platform.keyboard.character(40), "");
}

TEST_F(CFunctionsTest, windowsThatAreToldInPartHaveNothingElse) {
    const auto listed = [this](id list) {
        const Telling telling("CGWindowListCopyWindowInfo", {0, list});
        return platform.windowServer.onScreenWindows();
    };
    EXPECT_TRUE(listed(nil).empty());
    const auto windows =
        listed(@[ @{},
                  @{@"kCGWindowNumber" : @"seven",
                    @"kCGWindowBounds" : @{@"X" : @1}} ]);
    EXPECT_EQ(windows, (std::vector<OnScreenWindow>(2)));
}

TEST_F(CFunctionsTest, privateFunctionsPassTheirStatusOn) {
    auto* functions = platform.windowServer.menuBarFunctions();
    ASSERT_TRUE(functions);
    const Telling count("CGSGetWindowCount", {1001, nil});
    const Telling list("CGSGetProcessMenuBarWindowList", {1002, nil});
    const Telling rect("CGSGetScreenRectForWindow", {1003, nil});
    EXPECT_EQ(functions->windowCount(1).error(), 1001);
    EXPECT_EQ(functions->processMenuBarWindowList(1, {}).error(), 1002);
    EXPECT_EQ(functions->screenRect(1, 1).error(), 1003);
}

TEST_F(CFunctionsTest, screensAreOutOfSightForEachOfTheThreeReasons) {
    const auto areShown = [this](id session) {
        const Telling telling("CGSessionCopyCurrentDictionary", {0, session});
        return platform.screens.areShown();
    };
    EXPECT_TRUE(areShown(nil));
    EXPECT_TRUE(areShown(@{@"kCGSSessionOnConsoleKey" : @YES}));
    EXPECT_FALSE(areShown(@{@"kCGSSessionOnConsoleKey" : @NO}));
    EXPECT_FALSE(areShown(@{@"kCGSSessionOnConsoleKey" : @YES, @"CGSSessionScreenIsLocked" : @YES}));
    EXPECT_FALSE(areShown(@{@"kCGSSessionOnConsoleKey" : @"no number"}));
    const Telling asleep("CGDisplayIsAsleep", {1, nil});
    EXPECT_FALSE(areShown(nil));
}

TEST_F(CFunctionsTest, preferencesOfOtherTypesAreLeftOut) {
    const DefaultsDomain domain{"org.tavrin.mac-side.odd", DefaultsDomain::Host::Any};
    const auto stored = [&](id value) {
        const Telling telling("CFPreferencesCopyValue", {0, value});
        return platform.defaults.value(domain, "key");
    };
    EXPECT_FALSE(stored([NSDate date]));
    EXPECT_FALSE(stored([NSNumber numberWithUnsignedLongLong:UINT64_MAX]));
    EXPECT_EQ(stored(@[ [NSDate date], @"text" ]), DefaultsValue{DefaultsArray{{"text"}}});
    EXPECT_EQ(stored(@{@7 : @"no text for a key"}), DefaultsValue{DefaultsDictionary{}});
    const Telling keys("CFPreferencesCopyKeyList", {0, nil});
    EXPECT_TRUE(platform.defaults.keys(domain).empty());
}

} // namespace

} // namespace mac_side
