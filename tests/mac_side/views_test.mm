// The view renderer with AppKit's views as GNUstep has them: presses, keys, focus and scrolling.
#include "mac_side/every_view.h"
#include "mac_side/mac_side_fixture.h"
#include "platform/presentation.h"

#include <memory>

@interface FrameLog : NSObject
@property(strong) NSMutableArray* sizes;
- (void)changed:(NSNotification*)notification;
@end

@implementation FrameLog

- (void)changed:(NSNotification*)notification {
    [self.sizes addObject:[NSValue valueWithSize:[notification.object frame].size]];
}

@end

/// A drag that is over a view, with what it carries: GNUstep's own needs a server of pasteboards and a real
/// mouse.
@interface FakeDrag : NSObject
@property(strong) id draggingSource;
@property(copy) NSString* carried;
@end

@implementation FakeDrag

- (FakeDrag*)draggingPasteboard {
    return self;
}

- (NSString*)stringForType:(NSString*)type {
    return self.carried;
}

- (NSPoint)draggingLocation {
    return NSZeroPoint;
}

@end

namespace mac_side {

namespace {

class ViewsTest : public MacSideTest {
  protected:
    ViewsTest() {
        show({});
        pooled([this] { shown->makeKeyAndOrderFront(); });
        EXPECT_TRUE(until([this] { return shown->isVisible(); }));
        window = windowTitled("Every view");
    }

    void show(const EveryViewOptions& options) {
        pooled([&] { shown->setContent(everyView(log, options)); });
    }

    template <class Kind>
    NSView* control(int nth = 0) {
        return nodeOf<Kind>(window, nth).innerControl;
    }

    double offset() {
        return static_cast<NSScrollView*>(control<kinds::Scroll>()).contentView.bounds.origin.y;
    }

    bool wasPressed(const std::string& what) {
        return until([&] { return !log.pressed.empty() && log.pressed.back() == what; });
    }

    EveryViewLog log;
    std::unique_ptr<Window> shown = platform.presentation.makeWindow("Every view", [this] { ++log.closes; });
    NSWindow* window = nil;
};

TEST_F(ViewsTest, aPressedButtonTellsTheProgramLater) {
    [buttonTitled(window, "Other") performClick:nil];
    EXPECT_TRUE(log.pressed.empty());
    EXPECT_TRUE(wasPressed("other"));
}

TEST_F(ViewsTest, aClickOfTheMousePressesARowWhereItsTextIs) {
    clickAt(nodeNamed(window, "Row 1"));
    EXPECT_TRUE(wasPressed("Row 1"));
    EXPECT_EQ(focusedName(window), "Row 1");
}

TEST_F(ViewsTest, aCheckboxTicksItselfOnlyByTheTree) {
    auto* box = static_cast<NSButton*>(control<kinds::Checkbox>());
    [box performClick:nil];
    EXPECT_EQ(box.state, NSOffState);
    EXPECT_TRUE(wasPressed("choice"));
    show({.isChecked = true});
    EXPECT_EQ(control<kinds::Checkbox>(), box);
    EXPECT_EQ(box.state, NSOnState);
}

TEST_F(ViewsTest, arrowsMoveTheFocusAndScrollToIt) {
    EXPECT_EQ(window.firstResponder, window.contentView);
    press(window, downKey);
    EXPECT_EQ(focusedName(window), "Row 0");
    EXPECT_EQ(offset(), 0);
    for (int i = 0; i < 8; ++i) press(window, downKey);
    EXPECT_EQ(focusedName(window), "Row 8");
    EXPECT_GT(offset(), 0);
    for (int i = 0; i < 8; ++i) press(window, upKey);
    EXPECT_EQ(focusedName(window), "Row 0");
    EXPECT_LE(offset(), 1);
}

TEST_F(ViewsTest, tabGoesThroughTheListAsOneStopAndShiftTabGoesBack) {
    press(window, downKey);
    press(window, downKey);
    EXPECT_EQ(focusedName(window), "Row 1");
    press(window, tabKey);
    EXPECT_NE(focusedName(window), "Row 1");
    press(window, shiftTabKey);
    EXPECT_EQ(focusedName(window), "Row 1");
}

TEST_F(ViewsTest, keysActOnTheRowWithTheFocus) {
    for (int i = 0; i < 3; ++i) press(window, downKey);
    press(window, deleteKey);
    EXPECT_TRUE(wasPressed("delete Row 2"));
    press(window, spaceKey);
    EXPECT_TRUE(wasPressed("Row 2"));
}

TEST_F(ViewsTest, aHeldKeyActsOnce) {
    press(window, downKey);
    press(window, deleteKey);
    for (int i = 0; i < 3; ++i) press(window, {deleteKey.code, deleteKey.characters, 0, YES});
    turnFor(0.1);
    EXPECT_EQ(log.pressed, std::vector<std::string>{"delete Row 0"});
}

TEST_F(ViewsTest, theFocusGoesToTheNeighbourOfARowThatGoes) {
    for (int i = 0; i < 9; ++i) press(window, downKey);
    show({.rows = 8});
    EXPECT_EQ(focusedName(window), "Row 7");
    show({.rows = 3});
    EXPECT_EQ(focusedName(window), "Row 2");
    show({.rows = 12});
    EXPECT_EQ(focusedName(window), "Row 2");
}

TEST_F(ViewsTest, aTreeThatOnlySaysOtherwiseKeepsItsViewsAndItsOffset) {
    for (int i = 0; i < 9; ++i) press(window, downKey);
    const double before = offset();
    NSView* row = nodeNamed(window, "Row 8");
    show({.isChecked = true});
    EXPECT_EQ(nodeNamed(window, "Row 8"), row);
    EXPECT_EQ(offset(), before);
}

TEST_F(ViewsTest, returnPressesTheDefaultButtonUnlessARowHasTheFocus) {
    press(window, returnKey);
    EXPECT_TRUE(wasPressed("fine"));
    press(window, downKey);
    press(window, spaceKey);
    EXPECT_TRUE(wasPressed("Row 0"));
}

TEST_F(ViewsTest, aRecorderTakesTheKeyboardAndHearsOfItsEnd) {
    pooled([&] {
        auto* recorder = static_cast<NSButton*>(control<kinds::ShortcutRecorder>());
        [recorder performClick:nil];
        EXPECT_TRUE(until([&] { return window.firstResponder == recorder; }));
        [window makeFirstResponder:nil];
    });
    EXPECT_EQ(log.recorder, (std::vector<std::string>{"clicked", "resigned"}));
    log.recorder.clear();
    show({.hasRecorder = false});
    until([&] { return log.recorder.size() == 2; });
    EXPECT_EQ(log.recorder, (std::vector<std::string>{"moved", "gone"}));
}

TEST_F(ViewsTest, aContextMenuNamesTheActionsAndPerformsThem) {
    NSMenu* menu =
        [nodeNamed(window, "Row 4") menuForEvent:mouseAt(nodeNamed(window, "Row 4"), NSRightMouseDown)];
    ASSERT_EQ(menu.numberOfItems, 2);
    EXPECT_TRUE([[menu itemAtIndex:1].title isEqual:@"Show"]);
    [menu performActionForItemAtIndex:1];
    EXPECT_TRUE(log.pressed.empty());
    EXPECT_TRUE(wasPressed("show Row 4"));
}

TEST_F(ViewsTest, aRowTakesWhatThisProgramDropsOnIt) {
    TavrinViewNode* row = nodeNamed(window, "Row 1");
    EXPECT_EQ(row.registeredDraggedTypes.count, 1u);
    FakeDrag* drag = [[FakeDrag alloc] init];
    drag.carried = @"Row 3";
    const auto info = (id<NSDraggingInfo>)drag;
    EXPECT_EQ([row draggingEntered:info], NSDragOperationNone) << "from another program";
    EXPECT_FALSE([row performDragOperation:info]);
    drag.draggingSource = surfaceIn(window);
    EXPECT_EQ([row draggingEntered:info], NSDragOperationMove);
    EXPECT_EQ([row draggingUpdated:info], NSDragOperationMove);
    EXPECT_TRUE([row performDragOperation:info]);
    EXPECT_TRUE(log.dropped.empty()) << "not within the drag";
    EXPECT_TRUE(until([this] { return !log.dropped.empty(); }));
    EXPECT_EQ(log.dropped, std::vector<std::string>{"Row 3 on Row 1"});
    EXPECT_EQ(nodeOf<kinds::Button>(window).registeredDraggedTypes.count, 0u);
}

TEST_F(ViewsTest, theWindowAloneSetsTheFrameOfItsContentView) {
    NSView* content = window.contentView;
    NSMutableArray* sizes = [NSMutableArray array];
    content.postsFrameChangedNotifications = YES;
    FrameLog* frames = [[FrameLog alloc] init];
    frames.sizes = sizes;
    [NSNotificationCenter.defaultCenter addObserver:frames
                                           selector:@selector(changed:)
                                               name:NSViewFrameDidChangeNotification
                                             object:content];
    for (const int rows : {1, 9, 0, 12}) {
        [sizes removeAllObjects];
        show({.rows = rows, .hasRecorder = rows > 2});
        for (NSValue* size in sizes) EXPECT_TRUE(NSEqualSizes(size.sizeValue, content.frame.size));
        EXPECT_LE(sizes.count, 1u);
    }
    [NSNotificationCenter.defaultCenter removeObserver:frames];
}

TEST_F(ViewsTest, theContentViewHasExactlyTheRoomOfItsWindow) {
    for (const int rows : {12, 2, 0, 7}) {
        show({.rows = rows, .hasRecorder = rows > 2});
        const NSSize room = [window contentRectForFrameRect:window.frame].size;
        EXPECT_EQ(NSStringFromSize([window.contentView frame].size).UTF8String,
                  std::string(NSStringFromSize(room).UTF8String));
        EXPECT_EQ(surfaceIn(window).rootNode.frame.size.height, room.height);
    }
}

TEST_F(ViewsTest, theUserClosesAWindowThatCanComeBack) {
    [window performClose:nil];
    EXPECT_TRUE(until([&] { return log.closes == 1; }));
    EXPECT_FALSE(shown->isVisible());
    shown->makeKeyAndOrderFront();
    EXPECT_TRUE(until([&] { return shown->isVisible(); }));
    shown.reset();
    turnFor(0.1);
    EXPECT_EQ(log.closes, 1);
}

} // namespace

} // namespace mac_side
