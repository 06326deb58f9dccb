// That nothing of ours stays when its owner has gone, and that nothing is called then.
#include "mac_side/every_view.h"
#include "mac_side/mac_side_fixture.h"
#include "platform/application.h"
#include "platform/keyboard.h"
#include "platform/macos/presentation/status_items.h"
#include "platform/macos/support/callback_gate.h"
#include "platform/macos/support/menu.h"
#include "platform/presentation.h"
#include "platform/screens.h"
#include "platform/status_items.h"
#include "platform/workspace.h"

#import <Foundation/NSDebug.h>
#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace mac_side {

namespace {

/// Every class of the Mac side, and what of AppKit it makes.
const std::vector<std::string> countedClasses{"TavrinViewNode",
                                              "TavrinSurfaceView",
                                              "TavrinRecorderButton",
                                              "TavrinScrolledView",
                                              "TavrinMenuAction",
                                              "TavrinWindowDelegate",
                                              "TavrinPopoverDelegate",
                                              "TavrinPanel",
                                              "TavrinActivePillView",
                                              "TavrinCoralGlowView",
                                              "TavrinStatusButtonTarget",
                                              "TavrinObserver",
                                              "NSPopover"};

class LifetimesTest : public MacSideTest {
  protected:
    static void SetUpTestSuite() { GSDebugAllocationActive(YES); }

    static void TearDownTestSuite() { GSDebugAllocationActive(NO); }

    std::map<std::string, int> counts() {
        std::map<std::string, int> found;
        for (const auto& name : countedClasses)
            found[name] = GSDebugAllocationCount(objc_getClass(name.c_str()));
        return found;
    }

    /// All but a popover: GNUstep's keeps its controller, and with it whatever it shows.
    void makeAndUseEverything() {
        auto& presentation = platform.presentation;
        const auto item = platform.statusItems.create(30);
        item->setAction([](StatusItemPress) {});
        item->setDecorations(true, 1);
        const auto screens = platform.screens.onChanged([] {});
        const auto applications = platform.workspace.onApplicationsChanged([] {});
        const auto active = platform.application.onDidBecomeActive([] {});
        const auto keys =
            platform.keyboard.monitorKeyDown([](const KeyPress&) { return KeyHandling::PassedOn; });
        const auto window = presentation.makeWindow("Round", [] {});
        window->setContent(everyView(log, {.rows = 5}));
        window->makeKeyAndOrderFront();
        window->setContent(everyView(log, {.rows = 2, .hasRecorder = false}));
        const auto panel = presentation.makePanel();
        panel->setContent(everyView(log, {.rows = 1}));
        panel->show({300, 0, 20, 20});
        turnFor(0.1);
    }

    EveryViewLog log;
};

TEST_F(LifetimesTest, roundsOfMakingAndDroppingLeaveNothingBehind) {
    std::map<std::string, int> afterOne;
    for (int round = 1; round <= 3; ++round) {
        pooled([this] { makeAndUseEverything(); });
        turnFor(0.2);
        if (round == 1) afterOne = counts();
    }
    auto afterThree = counts();
    for (const auto& name : countedClasses) EXPECT_LE(afterThree[name], afterOne[name]) << name;
    EXPECT_EQ(std::ranges::count(log.recorder, "gone"), 3 * 2) << "recorders of windows and panels";
}

TEST_F(LifetimesTest, aNodeThatIsOutlivedByAWeakReferenceReadsAsNil) {
    const auto window = platform.presentation.makeWindow("Weak", [] {});
    __weak TavrinViewNode* row = nil;
    pooled([&] {
        window->setContent(everyView(log, {.rows = 3}));
        window->makeKeyAndOrderFront();
        row = nodeNamed(windowTitled("Weak"), "Row 2");
    });
    EXPECT_TRUE(row);
    pooled([&] { window->setContent(everyView(log, {.rows = 1})); });
    EXPECT_TRUE(until([&] { return row == nil; }));
}

TEST_F(LifetimesTest, whatWasPressedBeforeItsWindowWentTellsNobody) {
    pooled([this] {
        auto window = platform.presentation.makeWindow("Going", [this] { ++log.closes; });
        window->setContent(everyView(log, {}));
        window->makeKeyAndOrderFront();
        [buttonTitled(windowTitled("Going"), "Other") performClick:nil];
        [windowTitled("Going") performClose:nil];
    });
    turnFor(0.1);
    EXPECT_TRUE(log.pressed.empty());
    EXPECT_EQ(log.closes, 0);
}

TEST_F(LifetimesTest, aStatusItemThatHasGoneTellsOfNoPress) {
    int presses = 0;
    NSStatusBarButton* button = nil;
    pooled([&] {
        const auto item = platform.statusItems.create(30);
        item->setAction([&](StatusItemPress) { ++presses; });
        button = macos::buttonOf(*item);
        [button performClick:nil];
    });
    [button performClick:nil];
    turnFor(0.1);
    EXPECT_EQ(presses, 0);
}

TEST_F(LifetimesTest, aMenuThatOutlivesItsOwnerTellsOfNoChoice) {
    int choices = 0;
    NSMenu* menu = nil;
    pooled([&] {
        const macos::CallbackGate owner(platform.scheduler);
        MenuItem entry;
        entry.title = "Choose";
        entry.action = [&] { ++choices; };
        menu = macos::makeMenu({{entry}}, owner.deliver());
        [menu performActionForItemAtIndex:0]; // chosen, and waits for its turn
    });
    [menu performActionForItemAtIndex:0];
    turnFor(0.1);
    EXPECT_EQ(choices, 0);
}

TEST_F(LifetimesTest, aMonitorOfKeysMayGoWhileItIsToldOfOne) {
    const auto window = platform.presentation.makeWindow("Keys", [] {});
    window->makeKeyAndOrderFront();
    int keys = 0;
    Subscription monitor;
    const auto witness = std::make_shared<int>(0);
    pooled([&] {
        monitor = platform.keyboard.monitorKeyDown([&, witness](const KeyPress&) {
            monitor.cancel();
            keys += 1 + *witness; // the witness has to be there still
            return KeyHandling::Consumed;
        });
    });
    for (int n = 0; n < 2; ++n) {
        NSEvent* event = keyEvent(windowTitled("Keys"), spaceKey);
        pooled([event] { [NSApp sendEvent:event]; });
    }
    EXPECT_EQ(keys, 1);
    EXPECT_EQ(witness.use_count(), 1);
}

TEST_F(LifetimesTest, anObserverHearsNothingAfterItsSubscription) {
    int notices = 0;
    NSNotificationCenter* center = NSNotificationCenter.defaultCenter;
    const auto post = [&] {
        [center postNotificationName:NSApplicationDidChangeScreenParametersNotification object:NSApp];
    };
    auto kept = platform.screens.onChanged([&] { ++notices; });
    post();
    EXPECT_TRUE(until([&] { return notices == 1; }));
    post();
    kept.cancel(); // the notice has come, and waits for its turn
    post();
    turnFor(0.1);
    EXPECT_EQ(notices, 1);
}

TEST_F(LifetimesTest, aQueueThatGoesDropsWhatItHasNotBegun) {
    const auto witness = std::make_shared<int>(0);
    {
        auto queue = platform.scheduler.makeSerialQueue("going");
        for (int i = 0; i < 50; ++i) queue->post([witness] { ++*witness; });
    }
    EXPECT_EQ(witness.use_count(), 1);
    const int ran = *witness;
    turnFor(0.05);
    EXPECT_EQ(*witness, ran);
}

} // namespace

} // namespace mac_side
