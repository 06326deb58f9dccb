// Panels, alerts, menus and status items of the Mac side.
#include "mac_side/every_view.h"
#include "mac_side/mac_side_fixture.h"
#include "platform/macos/presentation/status_items.h"
#include "platform/presentation.h"
#include "platform/status_items.h"

#include <memory>
#include <optional>

namespace mac_side {

namespace {

class SurfacesTest : public MacSideTest {
  protected:
    EveryViewLog log;
};

AlertQuestion question() { return {"Really?", "It can't be taken back.", {"Do It", "Cancel"}, std::nullopt}; }

NSWindow* panelShown() {
    for (NSWindow* window in NSApp.windows)
        if (window.isVisible && [window.contentView isKindOfClass:NSVisualEffectView.class]) return window;
    return nil;
}

NSButton* buttonOfAlert(NSString* title) {
    NSMutableArray* views = [NSMutableArray arrayWithObject:NSApp.modalWindow.contentView];
    for (NSUInteger i = 0; i < views.count; ++i) {
        NSView* view = views[i];
        if ([view isKindOfClass:NSButton.class] && [[(NSButton*)view title] isEqual:title])
            return (NSButton*)view;
        [views addObjectsFromArray:view.subviews];
    }
    return nil;
}

TEST_F(SurfacesTest, aPanelStandsBelowItsAnchor) {
    const auto panel = platform.presentation.makePanel();
    panel->setContent(column({text("A notice"), button("Undo", [] {})}, {.padding = 12, .width = 200}));
    EXPECT_FALSE(panel->isShown());
    panel->show({300, 0, 24, 24});
    EXPECT_TRUE(until([&] { return panel->isShown(); }));
    const NSRect frame = panelShown().frame;
    EXPECT_EQ(NSMidX(frame), 312);
    EXPECT_EQ(NSWidth(frame), 200);
    EXPECT_EQ(NSMaxY(frame), NSHeight(NSScreen.mainScreen.frame) - 24 - 6);
    panel->close();
    EXPECT_FALSE(panel->isShown());
}

TEST_F(SurfacesTest, anAlertTellsWhichButtonWasPressed) {
    std::optional<std::size_t> answer;
    const auto alert =
        platform.presentation.showAlert(question(), [&](std::size_t button) { answer = button; });
    platform.scheduler.callAfter(Seconds{0.1}, [] { [buttonOfAlert(@"Cancel") performClick:nil]; });
    EXPECT_TRUE(until([&] { return answer.has_value(); }));
    EXPECT_EQ(answer, 1u);
}

TEST_F(SurfacesTest, anAlertThatIsDestroyedGoesWithoutAnAnswer) {
    bool isAnswered = false;
    auto alert = platform.presentation.showAlert(question(), [&](std::size_t) { isAnswered = true; });
    bool isGone = false;
    platform.scheduler.callAfter(Seconds{0.1}, [&] {
        EXPECT_TRUE(NSApp.modalWindow);
        alert.reset();
        isGone = true;
    });
    EXPECT_TRUE(until([&] { return isGone && !NSApp.modalWindow; }));
    turnFor(0.05);
    EXPECT_FALSE(isAnswered);
}

TEST_F(SurfacesTest, anAlertThatGoesBeforeItIsShownIsNeverShown) {
    platform.presentation.showAlert(question(), [](std::size_t) { ADD_FAILURE(); }).reset();
    turnFor(0.1);
    EXPECT_FALSE(NSApp.modalWindow);
}

TEST_F(SurfacesTest, aStatusItemTellsWhereItIsAndThatItWasPressed) {
    const auto item = platform.statusItems.create(30);
    std::optional<StatusItemPress> press;
    NSStatusBarButton* button = macos::buttonOf(*item);
    EXPECT_FALSE(button.enabled);
    item->setAction([&](StatusItemPress by) { press = by; });
    EXPECT_TRUE(button.enabled);
    ASSERT_TRUE(item->frame());
    EXPECT_EQ(item->frame()->width, 30);
    EXPECT_EQ(item->frame()->y, 0);
    [button performClick:nil];
    EXPECT_TRUE(until([&] { return press.has_value(); }));
    EXPECT_EQ(press, StatusItemPress::Left);
    item->setVisible(false);
    EXPECT_FALSE(item->isDrawn());
}

TEST_F(SurfacesTest, aStatusItemOffersItsActionsToAssistiveTechnology) {
    const auto item = platform.statusItems.create(30);
    int shown = 0;
    {
        const std::string longEnoughToBeAllocated(100, 'x');
        item->setAccessibilityActions({{"Show Menu", [&shown, longEnoughToBeAllocated] {
                                            shown += static_cast<int>(longEnoughToBeAllocated.size());
                                        }}});
    }
    NSAccessibilityCustomAction* action = macos::buttonOf(*item).accessibilityCustomActions[0];
    EXPECT_TRUE([action.name isEqual:@"Show Menu"]);
    EXPECT_TRUE(action.handler());
    EXPECT_TRUE(until([&] { return shown > 0; }));
    EXPECT_EQ(shown, 100);
}

TEST_F(SurfacesTest, theMainMenuHasTheCommandsThatTextAsksFor) {
    NSMenu* edit = [NSApp.mainMenu itemWithTitle:@"Edit"].submenu;
    EXPECT_TRUE(sel_isEqual([edit itemWithTitle:@"Paste"].action, @selector(paste:)));
    EXPECT_TRUE([[edit itemWithTitle:@"Redo"].keyEquivalent isEqual:@"Z"]);
}

} // namespace

} // namespace mac_side
