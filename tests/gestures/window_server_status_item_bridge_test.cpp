#include "concurrency/job.h"
#include "gestures/window_server_status_item_bridge.h"
#include "support/fake_events.h"
#include "support/fake_window_server.h"

#include <gtest/gtest.h>

namespace tavrin {
namespace {

using Bridge = WindowServerStatusItemBridge;
using Result = Bridge::EventResult;
using Lines = std::vector<std::string>;

constexpr Rect item{900, 3, 28, 24};
constexpr Rect anchor{1200, 0, 30, 30};

class WindowServerBridgeTest : public testing::Test {
  protected:
    WindowServerBridgeTest() { server.frames = {{4, {860, 0, 40, 30}}, {5, {899, 0, 30, 30}}}; }

    std::optional<Result> finish(Task<Result> task) {
        std::optional<Result> result;
        auto job = start(scheduler, keep(std::move(task), &result));
        EXPECT_TRUE(scheduler.settle(Seconds{30}));
        return result;
    }

    static Task<> keep(Task<Result> task, std::optional<Result>* result) {
        *result = co_await std::move(task);
    }

    Task<Result> click() { return bridge.postClick(501, item); }

    Task<Result> move() { return bridge.postCommandMove(501, item, anchor, {1150, 15}); }

    VirtualScheduler scheduler;
    FakeEvents events{scheduler};
    FakeWindowServer server;
    Bridge bridge{events, server};
};

TEST_F(WindowServerBridgeTest, matchesOneWindowWithinItsTolerances) {
    struct Case {
        Rect window;
        bool matches;
    };

    const std::vector<Case> cases{
        {{903, 3, 28, 24}, true},
        {{903.1, 3, 28, 24}, false}, // middle, across
        {{900, 0, 28, 24}, true},
        {{900, -0.1, 28, 24}, false}, // middle, down
        {{892, 3, 44, 24}, true},
        {{892, 3, 44.1, 24}, false}, // width
        {{900, -4, 28, 38}, true},
        {{900, -4, 28, 38.1}, false}, // height
        {{900, 3, std::nan(""), 24}, false},
    };
    for (const auto& [window, matches] : cases) {
        const std::vector<WindowServerMenuBarWindow> windows{{1, {0, 0, 1512, 30}}, {2, window}};
        EXPECT_EQ(Bridge::matchingWindow(item, windows).has_value(), matches)
            << window.x << " " << window.width;
    }
    const std::vector<WindowServerMenuBarWindow> twins{{1, item}, {2, {901, 3, 28, 24}}};
    EXPECT_EQ(Bridge::matchingWindow(item, twins), std::nullopt);
}

TEST_F(WindowServerBridgeTest, listsOnlyWhatItIsSureOf) {
    server.frames[6] = {950, 0, 0, 30};
    EXPECT_EQ(Bridge::menuBarWindows(server).size(), 2u) << "a window without a size is none";
    for (const auto listed : {-1, 4}) {
        server.listed = listed;
        EXPECT_TRUE(Bridge::menuBarWindows(server).empty()) << listed;
    }
    server.listed = std::unexpected(1001);
    EXPECT_TRUE(Bridge::menuBarWindows(server).empty());
    server.listed.reset();
    for (const auto count : {0, 4000, -3}) {
        server.count = count;
        EXPECT_TRUE(Bridge::menuBarWindows(server).empty()) << count;
    }
    server.count = 2048;
    EXPECT_EQ(Bridge::menuBarWindows(server).size(), 2u);
    server.count = std::unexpected(1001);
    EXPECT_TRUE(Bridge::menuBarWindows(server).empty());
}

TEST_F(WindowServerBridgeTest, clickIsAddressedToTheWindow) {
    EXPECT_EQ(finish(click()), Result::posted);
    EXPECT_EQ(events.log,
              (Lines{"0 session down 914,15", "10 session up 914,15", "60 session moved 300,400"}));
    for (const auto& event : {events.posted[0], events.posted[1]}) {
        EXPECT_EQ(event.clickState, 1);
        EXPECT_EQ(event.fields, (std::map<EventField, std::int64_t>{{EventField::EventNumber, 42},
                                                                    {EventField::TargetProcess, 501},
                                                                    {EventField::WindowNumber, 5},
                                                                    {EventField::WindowUnderPointer, 5},
                                                                    {EventField::WindowThatCanHandle, 5}}));
        ASSERT_TRUE(event.source);
        EXPECT_EQ(event.source->settings().localEventsSuppressionInterval, Seconds{0});
        EXPECT_EQ(event.source->settings().localEventsFilter.at(EventSuppressionState::SuppressionInterval),
                  7u);
    }
}

TEST_F(WindowServerBridgeTest, commandMoveGoesToProcessAndSession) {
    EXPECT_EQ(finish(move()), Result::posted);
    EXPECT_EQ(events.log, (Lines{"0 501 down cmd 914,15", "0 session down cmd 914,15", //
                                 "80 501 moved 1215,15", "80 session moved 1215,15",   //
                                 "80 501 moved 1150,15", "80 session moved 1150,15",   //
                                 "260 501 up 1150,15", "260 session up 1150,15",       //
                                 "760 session moved 300,400"}));
    EXPECT_EQ(events.posted[1].fields.at(EventField::WindowThatCanHandle), 5);
}

TEST_F(WindowServerBridgeTest, anyDoubtMeansUnavailableAndNoEvent) {
    const auto unavailable = [this](const char* why) {
        EXPECT_EQ(finish(click()), Result::unavailable) << why;
        EXPECT_EQ(finish(move()), Result::unavailable) << why;
        EXPECT_EQ(events.log, Lines{}) << why;
    };
    server.shiftAfterListing = 0.6;
    unavailable("the window has moved since it was listed");
    server.shiftAfterListing = 0;
    server.frames[8] = {900, 0, 30, 30};
    unavailable("two windows can be the item");
    server.isAbsent = true;
    unavailable("a function is missing");
    server.isAbsent = false;
    server.frames.erase(8);
    EXPECT_EQ(finish(bridge.postClick(0, item)), Result::unavailable);
    EXPECT_EQ(finish(bridge.postClick(501, {900, 3, 0, 24})), Result::unavailable);

    server.reads.clear();
    server.shiftAfterListing = 0.5;
    EXPECT_EQ(finish(click()), Result::posted);
    server.shiftAfterListing = 0;
    events.makesSources = false;
    EXPECT_EQ(finish(move()), Result::noEventSource);
}

TEST_F(WindowServerBridgeTest, cancelledAnywhereItLeavesNothingBehind) {
    const auto isAtRest = [this](int wait) { EXPECT_TRUE(events.isAtRest()) << "wait " << wait; };
    EXPECT_EQ(cancelAtEveryWait(scheduler, [this] { return start(scheduler, click()); }, isAtRest), 2);
    EXPECT_EQ(cancelAtEveryWait(scheduler, [this] { return start(scheduler, move()); }, isAtRest), 3);
}

} // namespace
} // namespace tavrin
