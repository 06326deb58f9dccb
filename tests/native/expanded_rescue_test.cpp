#include "core/hiding_core.h"
#include "movement/moving_fixture.h"
#include "support/fake_visibility_service.h"

#include <algorithm>

namespace tavrin {
namespace {

/// Tavrin's core on a notched macOS 27 whose service accepts everything at once, with applications 501 to
/// 504, the last of which has a wide item. The items are where the test puts them; one that is withheld is
/// gone from the bar.
class ExpandedRescueTest : public MovingTest {
  protected:
    ExpandedRescueTest() {
        auto desktop = mac_model::plainDesktop();
        desktop.macOS = {27, 0};
        desktop.screens[0].leftMenuBarArea = Rect{0, 0, 665, 30};
        desktop.screens[0].rightMenuBarArea = Rect{850, 0, 662, 30};
        for (int process = 501; process <= 504; ++process)
            desktop.applications.push_back(mac_model::applicationSpec(bundleOf(process), process));
        boot(std::move(desktop));
        service.acceptsAtOnce = true;
        buildCore();
    }

    void buildCore() {
        const auto& p = MovingTest::platform();
        ours.emplace(Platform{p.scheduler, p.application, accessibility, p.defaults, p.eventMonitors, events,
                              p.hotKeys, p.keyboard, p.loginItem, p.presentation, p.randomness, p.screens,
                              p.statusItems, p.text, service, windowServer, p.workspace});
        permission.emplace(scheduler, accessibility, p.application);
        core.emplace(*ours, *permission, [](StatusItem&) {});
        core->statusItems.configureStatusItems(OwnStatusItems::PositionSeed::IfAbsent);
        settle();
        core->activity.isAwaitingInitialState.set(false);
        core->activity.isTrayVisible.set(true);
    }

    /// Puts the shown items side by side and the trapped ones behind the notch, but for what is withheld.
    void arrange() {
        double right = core->statusItems.controlFrame()->x;
        for (const int process : {504, 503, 502, 501}) {
            if (ended.contains(process) || isWithheld(process)) {
                remove(process);
            } else {
                const double width = process == 504 ? 120 : 28;
                right -= width + 2;
                place(process, trapped.contains(process) ? 700 : right, width);
            }
        }
    }

    void scan() {
        arrange();
        scanning = start(scheduler, core->inventory.refreshItemsNow());
        scheduler.advance(Seconds{0.05});
    }

    /// Lets time pass, in which the bar follows the list in force.
    void pass(double seconds) {
        for (double passed = 0; passed < seconds; passed += 0.05) {
            arrange();
            scheduler.advance(Seconds{0.05});
        }
    }

    void end(int process) {
        ended.insert(process);
        mac->processes().end(process);
    }

    bool isWithheld(int process) const {
        const auto* list = service.inForce();
        return list && std::ranges::find(*list, bundleOf(process)) == list->end();
    }

    std::set<std::string> stored() const {
        return core->settings.strings(Settings::rescuedItemIdentifiersKey);
    }

    FakeVisibilityService service;
    std::optional<Platform> ours;
    std::optional<AccessibilityPermission> permission;
    std::optional<HidingCore> core;
    std::set<int> trapped;
    std::set<int> ended;
    Job<> scanning;
};

TEST_F(ExpandedRescueTest, withholdsWhatANotchHidesWhileATrayOffersIt) {
    trapped = {501};
    scan();
    EXPECT_TRUE(isWithheld(501));
    EXPECT_FALSE(isWithheld(502));
    EXPECT_EQ(stored(), std::set{bundleOf(501)});
    const auto activations = service.answers.size();
    pass(5);
    EXPECT_TRUE(isWithheld(501));
    EXPECT_EQ(service.answers.size(), activations) << "it settles";
    EXPECT_EQ(scheduler.timersPending(), 0U);
}

TEST_F(ExpandedRescueTest, withholdsNothingWhileAnythingSpeaksAgainstIt) {
    trapped = {501};
    auto& activity = core->activity;
    const auto expectSuppressed = [&](Published<bool>& flag, bool value) {
        const bool before = flag.get();
        scan();
        ASSERT_TRUE(isWithheld(501));
        flag.set(value);
        scan();
        EXPECT_FALSE(isWithheld(501));
        flag.set(before);
    };
    expectSuppressed(activity.isAwaitingInitialState, true);
    expectSuppressed(activity.isConfigureOpen, true);
    expectSuppressed(activity.isApplyingConfiguration, true);
    expectSuppressed(activity.isTrayVisible, false);
    scan();
    EXPECT_TRUE(isWithheld(501));
}

TEST_F(ExpandedRescueTest, letsOneBackWhenThereIsRoomAndJudgesIt) {
    trapped = {501, 502};
    scan();
    pass(2);
    ASSERT_TRUE(isWithheld(501) && isWithheld(502));
    end(504);
    end(503);
    trapped = {};
    pass(0.6);
    EXPECT_TRUE(isWithheld(501) != isWithheld(502)) << "one at a time";
    pass(4);
    EXPECT_FALSE(isWithheld(501));
    EXPECT_EQ(stored(), std::set<std::string>{});
}

TEST_F(ExpandedRescueTest, doesNotTryAFailureAgainInTheSameRoom) {
    trapped = {501};
    scan();
    pass(2);
    end(504);
    pass(0.6);
    EXPECT_FALSE(isWithheld(501)) << "it is tried";
    pass(3);
    scan();
    EXPECT_TRUE(isWithheld(501)) << "it doesn't fit";
    pass(2);
    const auto activations = service.answers.size();
    pass(10);
    scan();
    pass(3);
    EXPECT_EQ(service.answers.size(), activations);
    EXPECT_TRUE(isWithheld(501));
}

TEST_F(ExpandedRescueTest, forgetsItAllWhenTheBarIsHidden) {
    core->setHidden(std::vector{bundleOf(503)}, true);
    trapped = {501};
    scan();
    core->hiding.requestCollapse(Persist::Yes, OnFailure::StayQuiet);
    pass(1);
    EXPECT_TRUE(isWithheld(503));
    EXPECT_FALSE(isWithheld(501)) << "macOS has room for it, or hides it itself";
    EXPECT_EQ(stored(), std::set<std::string>{});
    core->hiding.expand(Persist::Yes);
    pass(0.2);
    EXPECT_FALSE(service.inForce());
}

TEST_F(ExpandedRescueTest, judgesNothingWhileTheBarIsNotVisible) {
    trapped = {501};
    mac->screens().setUnseen({.isMenuBarHidden = false, .isScreenLocked = true, .isDisplayAsleep = false});
    scan();
    EXPECT_FALSE(service.inForce());
}

} // namespace
} // namespace tavrin
