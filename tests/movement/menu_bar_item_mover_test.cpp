#include "gestures/command_drag.h"
#include "movement/menu_bar_item_mover.h"
#include "movement/moving_fixture.h"

namespace tavrin {
namespace {

using Result = MenuBarMoveResult;
using enum MenuBarZone;

constexpr int owner = 501;

class MoverTest : public MovingTest {
  protected:
    MoverTest() { boot(); }

    Result move(MenuBarItemSnapshot item, MenuBarZone target) {
        events.log.clear();
        events.posted.clear();
        return finish(mover->move(std::move(item), target, geometry)).value();
    }

    /// A window for the item, as the window server would list it.
    void addWindow(double x, double width) { windowServer.frames[77] = {x, 0, width, 30}; }

    bool wentToWindow() const { return !events.log.empty() && events.log.front().starts_with("0 501 down"); }

    void useNotch() {
        auto& screen = geometry.screens.front();
        screen.leftMenuBarArea = Rect{0, 0, 665, 30};
        screen.rightMenuBarArea = Rect{850, 0, 662, 30};
    }

    MenuBarMoveGeometry geometry{.controlFrame = {1000, 0, 26, 30},
                                 .glyphWidth = 26,
                                 .visibleNeighborAccessibilityFrame = {},
                                 .screens = {{.frame = {0, 0, 1512, 982},
                                              .menuBarHeight = 30,
                                              .leftMenuBarArea = {},
                                              .rightMenuBarArea = {}}},
                                 .spacerFrame = Rect{1000, 0, 0, 30}};
};

TEST_F(MoverTest, dragsWithTheCommandFlagAtAPersonsPace) {
    EXPECT_EQ(move(place(owner, 1100), hidden), Result::eventsPosted);
    const int steps = 10; // from 1114 to 1000 - 70
    ASSERT_EQ(events.log.size(), 6u + steps);
    EXPECT_EQ(
        Lines(events.log.begin(), events.log.begin() + 4),
        (Lines{"0 hid moved 1114,15", "60 hide", "60 hid down cmd 1114,15", "140 hid dragged cmd 1096,15"}));
    EXPECT_EQ(events.log[4], "155 hid dragged cmd 1077,15");
    EXPECT_EQ(
        Lines(events.log.end() - 4, events.log.end()),
        (Lines{"275 hid dragged cmd 930,15", "290 hid up cmd 930,15", "470 show", "470 hid moved 300,400"}));
    for (const auto& event : events.posted) {
        EXPECT_FALSE(event.source);
        if (event.type == MouseEventType::Moved) continue;
        EXPECT_EQ(event.fields.at(EventField::EventNumber), 42) << "AppKit ties them together by it";
    }
    EXPECT_EQ(events.posted[2].fields.at(EventField::DeltaX), -18);
}

TEST_F(MoverTest, hostedDragsCarryASourceThatLetsTheUsersEventsThrough) {
    const auto drag = [this] {
        return postCommandDrag(events, {{1100, 15}, {1000, 15}, UsesHostedMenuBar::Yes});
    };
    EXPECT_EQ(finish(drag()), GestureResult::posted);
    for (const auto& event : events.posted) {
        ASSERT_TRUE(event.source);
        EXPECT_EQ(event.source->settings(),
                  (EventSourceSettings{.state = EventSourceState::HidSystem,
                                       .localEventsSuppressionInterval = Seconds{0},
                                       .localEventsFilter = {{EventSuppressionState::RemoteMouseDrag, 7}}}));
    }
    events.log.clear();
    events.makesSources = false;
    EXPECT_EQ(finish(drag()), GestureResult::noEvents);
    EXPECT_EQ(events.log, Lines{});
}

TEST_F(MoverTest, cancelledAnywhereItLeavesNothingBehind) {
    const auto isAtRest = [this](int wait) {
        EXPECT_TRUE(events.isAtRest()) << "wait " << wait;
        EXPECT_EQ(scheduler.tasksAlive(), 0u);
    };
    const auto item = place(owner, 1100);
    const auto moving = [&] { return start(scheduler, mover->move(item, hidden, geometry)); };
    EXPECT_GE(cancelAtEveryWait(scheduler, moving, isAtRest), 3 + 10);
    EXPECT_EQ(move(item, hidden), Result::eventsPosted) << "and the next move works";

    auto job = moving();
    scheduler.advance(Seconds{0.16});
    events.log.clear();
    job.cancel();
    EXPECT_EQ(events.log, (Lines{"0 hid up cmd 1077,15", "0 show", "0 hid moved 300,400"}))
        << "the release is where the drag has come to";
}

TEST_F(MoverTest, cancelledBeforeThePressItPressesNothing) {
    auto job = start(scheduler, mover->move(place(owner, 1100), hidden, geometry));
    scheduler.advance(Seconds{0.03});
    job.cancel();
    scheduler.advance(Seconds{2});
    EXPECT_EQ(events.log, (Lines{"0 hid moved 1114,15", "30 hid moved 300,400"}));
}

TEST_F(MoverTest, aPressOfTheUsersEndsTheDrag) {
    using enum MouseEventType;

    struct Case {
        const char* what;
        double moment; // the press comes 60 ms after the beginning, and the release 290
        MouseEventType event;
        Result result;
    };

    const std::vector<Case> cases{
        {"let go of before the drag has begun to move", 0.1, LeftUp, Result::userPressed},
        {"pressed while it moves", 0.15, LeftDown, Result::userPressed},
        {"let go of while it moves", 0.2, LeftUp, Result::userPressed},
        {"pressed after the last step", 0.285, LeftDown, Result::userPressed},
        {"pressed when the item has been put down", 0.3, LeftDown, Result::eventsPosted},
        {"let go of when the item has been put down", 0.3, LeftUp, Result::eventsPosted},
    };
    for (const auto& c : cases) {
        events.counts[c.event] += 3; // what the user did before is nothing to the gesture
        bool isDownSoonAfter = false;
        scheduler.callAfter(Seconds{c.moment}, [&] { ++events.counts[c.event]; });
        scheduler.callAfter(Seconds{c.moment + 0.02}, [&] { isDownSoonAfter = events.isButtonDown; });
        EXPECT_EQ(finish(mover->move(place(owner, 1100), hidden, geometry)), c.result) << c.what;
        EXPECT_EQ(isDownSoonAfter, c.moment < 0.12) << c.what;
        EXPECT_TRUE(events.isAtRest()) << c.what;
    }
}

TEST_F(MoverTest, itsOwnPressIsNeverTakenForTheUsers) {
    events.countsPosted = false;
    const auto item = place(owner, 1100);
    for (const double lateness : {0.05, 0.1, 0.2, 0.3}) {
        const auto count = [&] { ++events.counts[MouseEventType::LeftDown]; };
        scheduler.callAfter(Seconds{0.06 + lateness}, count);
        EXPECT_EQ(finish(mover->move(item, hidden, geometry)), Result::eventsPosted) << lateness;
    }
}

TEST_F(MoverTest, eventsThatCannotBeMadeNeverLeaveAButtonDown) {
    const auto item = place(owner, 1100);
    for (int made = 0;; ++made) {
        events.creationsBeforeFailures = made;
        const auto result = move(item, hidden);
        EXPECT_TRUE(events.isAtRest()) << made;
        if (result == Result::eventsPosted) break;
        EXPECT_EQ(result, Result::eventCreationFailed);
        if (made < 4) EXPECT_EQ(events.log, Lines{}) << "nothing begins that can't be ended";
    }
}

TEST_F(MoverTest, reasonsNotToBegin) {
    struct Case {
        const char* situation;
        double x;
        MenuBarZone target;
        std::function<void()> prepare;
        Result result;
    };

    const auto control = [this](Rect frame) { geometry.controlFrame = frame; };
    const std::vector<Case> cases{
        {"right of the boundary already", 1030, visible, [] {}, Result::alreadyPlaced},
        {"its middle on the boundary", 986, visible, [] {}, Result::alreadyPlaced},
        {"left of the boundary already", 900, hidden, [] {}, Result::alreadyPlaced},
        {"pushed off the screen", -900, visible, [] {}, Result::itemOffscreen},
        {"no width left for the control", 1100, hidden, [&] { control({1000, 0, 0, 30}); },
         Result::invalidGeometry},
        {"the glyph has no width", 1100, hidden, [&] { geometry.glyphWidth = 0; }, Result::invalidGeometry},
        {"the boundary is at the screen's edge", 1100, hidden,
         [&] { control({60, 0, 26, 30}), geometry.spacerFrame.reset(); }, Result::invalidGeometry},
        {"no screens", 1100, hidden, [&] { geometry.screens.clear(); }, Result::itemOffscreen},
        {"its owner has quit", 1100, hidden, [&] { remove(owner); }, Result::itemUnavailable},
        {"its owner hangs", 1100, hidden,
         [&] { accessibility.nodes[owner].error = AccessibilityError::CannotComplete; },
         Result::itemUnavailable},
        {"it has no place", 1100, hidden,
         [&] { accessibility.nodes[itemNode + owner].attributes.erase("AXPosition"); },
         Result::itemUnavailable},
        {"access was revoked", 1100, hidden, [&] { accessibility.trusted = false; },
         Result::accessibilityDenied},
    };
    const auto usual = geometry;
    for (const auto& [situation, x, target, prepare, result] : cases) {
        geometry = usual;
        const auto item = place(owner, x);
        prepare();
        EXPECT_EQ(move(item, target), result) << situation;
        EXPECT_EQ(events.log, Lines{}) << situation;
        accessibility.nodes.clear();
        accessibility.trusted = true;
    }
}

TEST_F(MoverTest, theNotchIsNeverCrossed) {
    useNotch();
    EXPECT_EQ(move(place(owner, 1100), hidden), Result::eventsPosted);
    EXPECT_EQ(move(place(owner, 640), visible), Result::blockedByNotch) << "from its left to its right";
    EXPECT_EQ(move(place(owner, 700), visible), Result::blockedByNotch) << "from behind it";
    geometry.controlFrame.x = geometry.spacerFrame->x = 900;
    EXPECT_EQ(move(place(owner, 1100), hidden), Result::blockedByNotch) << "to a place behind it";
    EXPECT_EQ(events.log, Lines{});
}

TEST_F(MoverTest, itemsOutOfSightAreMovedByTheirWindowFirst) {
    geometry.visibleNeighborAccessibilityFrame = Rect{1026, 3, 30, 24};
    const auto item = place(owner, -500);
    EXPECT_EQ(move(item, visible), Result::itemOffscreen) << "it has no window";
    addWindow(-500, 28);
    EXPECT_EQ(move(item, visible), Result::eventsPosted);
    ASSERT_TRUE(wentToWindow());
    EXPECT_EQ(events.log.at(6), "260 501 up 1036,15") << "beside the control, at the neighbour's height";
    events.makesSources = false;
    EXPECT_EQ(move(item, visible), Result::eventCreationFailed);
    events.makesSources = true;
    geometry.visibleNeighborAccessibilityFrame.reset();
    EXPECT_EQ(move(item, visible), Result::itemOffscreen) << "there is nothing to put it beside";

    geometry.controlFrame = {900, 0, 26, 30};
    geometry.spacerFrame.reset();
    addWindow(1500, 28); // half off the right edge
    EXPECT_EQ(move(place(owner, 1500), hidden), Result::eventsPosted);
    EXPECT_TRUE(wentToWindow());
    windowServer.isAbsent = true;
    EXPECT_EQ(move(place(owner, 1500), hidden), Result::eventsPosted);
    EXPECT_FALSE(wentToWindow()) << "an ordinary drag when there is no such way";
}

TEST_F(MoverTest, anItemToShowIsNotInPlaceWhileItIsOutOfSight) {
    EXPECT_EQ(move(place(owner, 1480), visible), Result::alreadyPlaced);
    EXPECT_EQ(move(place(owner, 1500), visible), Result::eventsPosted) << "half off the right edge";
    useNotch();
    geometry.controlFrame.x = geometry.spacerFrame->x = 600;
    EXPECT_EQ(move(place(owner, 700), visible), Result::blockedByNotch) << "behind the notch";
}

TEST_F(MoverTest, itemsInSightAreMovedByTheirWindowWhereTheNotchBlocksTheWay) {
    useNotch();
    geometry.controlFrame.x = geometry.spacerFrame->x = 900;
    addWindow(1100, 28);
    EXPECT_EQ(move(place(owner, 1100), hidden), Result::eventsPosted);
    EXPECT_TRUE(wentToWindow());
    events.makesSources = false;
    EXPECT_EQ(move(place(owner, 1100), hidden), Result::eventCreationFailed);
}

} // namespace
} // namespace tavrin
