#include "core/hiding_core.h"
#include "movement/moving_fixture.h"

#include <set>

namespace tavrin {
namespace {

using enum MenuBarZone;

TEST(ConfigurationFailureTest, summary) {
    const ConfigurationFailure wifi{"Wi-Fi", hidden, "macOS kept it on the visible side."};
    EXPECT_EQ(failureSummary(std::vector{wifi}),
              "Couldn’t apply 1 change:\nHide Wi-Fi: macOS kept it on the visible side.");
    EXPECT_EQ(failureSummary(std::vector{wifi, {"Notes", visible, "why."}}),
              "Couldn’t apply 2 changes:\nHide Wi-Fi: macOS kept it on the visible side.\nShow Notes: why.");
}

TEST(ConfigurationFailureTest, sentencesOfMovesThatDidNotBegin) {
    using enum MenuBarMoveResult;

    struct Case {
        MenuBarMoveResult result;
        const char* toBeHidden;
        const char* toBeVisible;
    };

    const char* denied = "Accessibility access is required.";
    const char* unavailable = "the item is no longer available; refresh and try again.";
    const char* lane = "the visible lane is not ready; wait a moment, refresh, and try again.";
    const char* drag = "macOS did not accept the drag; close any open menu and try again.";
    const Case cases[]{
        {accessibilityDenied, denied, denied},
        {itemUnavailable, unavailable, unavailable},
        {itemOffscreen,
         "the item is outside the rendered menu bar; temporarily quit a few menu bar apps, then refresh.",
         "macOS no longer renders the item in the native row; it will remain available in the tray."},
        {blockedByNotch,
         "the item cannot be reached without dragging through the notch; temporarily free menu bar space, "
         "then refresh.",
         "no selectable part is visible beside the notch; it will remain available in the tray."},
        {invalidGeometry, lane, lane},
        {eventCreationFailed, drag, drag},
    };
    for (const auto& [result, toBeHidden, toBeVisible] : cases) {
        EXPECT_EQ(moveFailureDetail(result, hidden), toBeHidden);
        EXPECT_EQ(moveFailureDetail(result, visible), toBeVisible);
    }
    for (const auto result : {eventsPosted, alreadyPlaced}) {
        EXPECT_EQ(moveFailureDetail(result, hidden), std::nullopt);
        EXPECT_EQ(moveFailureDetail(result, visible), std::nullopt);
    }
}

/// Tavrin's core on a modelled Mac, with a menu bar whose other items go wherever they are dropped, unless
/// they refuse. Items 501 to 504 exist.
class ApplierTest : public MovingTest {
  protected:
    ApplierTest() {
        auto desktop = mac_model::plainDesktop();
        for (int process = 501; process <= 504; ++process)
            desktop.applications.push_back(mac_model::applicationSpec(bundleOf(process), process));
        desktop.applications.push_back(
            mac_model::applicationSpec("org.example.clock", 600, {mac_model::itemSpec("clock", 300, 0)}));
        boot(std::move(desktop));
        storePosition("Skerrow.Main.v1", 400);
        buildCore();
        events.onPosted = [this](const MouseEvent& event) { react(event); };
        progress = state().applyProgress.subscribe([this](const std::string& text) {
            if (!text.empty()) progressTexts.push_back(text);
        });
    }

    void buildCore() {
        const auto& p = MovingTest::platform();
        ours.emplace(Platform{p.scheduler, p.application, accessibility, p.defaults, p.eventMonitors, events,
                              p.hotKeys, p.keyboard, p.loginItem, p.presentation, p.randomness, p.screens,
                              p.statusItems, p.text, p.visibilityService, windowServer, p.workspace});
        permission.emplace(scheduler, accessibility, p.application);
        core.emplace(*ours, *permission, [](StatusItem&) {});
        core->statusItems.configureStatusItems(OwnStatusItems::PositionSeed::IfAbsent);
        settle();
        control = core->statusItems.controlFrame().value();
    }

    void react(const MouseEvent& event) {
        if (event.type == MouseEventType::LeftDown) pressed = event.location;
        if (event.type != MouseEventType::LeftUp || --dropsToLose >= 0) return;
        for (int process = 501; process <= 504; ++process) {
            auto& attributes = accessibility.nodes[itemNode + process].attributes;
            if (attributes.empty() || refusing.contains(process)) continue;
            auto& place = std::get<Point>(attributes["AXPosition"]);
            if (pressed.x >= place.x && pressed.x < place.x + 28) place.x = event.location.x - 14;
        }
    }

    void placeVisible(int process) { place(process, control.maxX() + 30 * (process - 500)); }

    void placeHidden(int process) { place(process, control.x - 30 - 40 * (process - 500)); }

    void wantHidden(const std::set<int>& processes) {
        for (int process = 501; process <= 504; ++process)
            core->hiddenItems.set(std::vector{bundleOf(process)}, processes.contains(process));
    }

    std::optional<ApplyOutcome> apply() { return finish(core->applier.applyConfiguration()).value(); }

    const BarReadings& state() const { return core->readings; }

    std::optional<std::string> errorMessage() const { return state().errorMessage.get(); }

    void expectIdle() {
        EXPECT_TRUE(events.isAtRest());
        EXPECT_FALSE(state().isApplyingConfiguration.get());
        EXPECT_EQ(state().applyProgress.get(), "");
    }

    std::optional<Platform> ours;
    std::optional<AccessibilityPermission> permission;
    std::optional<HidingCore> core;
    Rect control;
    Point pressed;
    int dropsToLose = 0;
    std::set<int> refusing;
    Lines progressTexts;
    Subscription progress;
};

TEST_F(ApplierTest, nothingToMovePostsNothingAndHides) {
    placeVisible(501);
    placeHidden(502);
    wantHidden({502});
    core->failure.tell("old");
    EXPECT_EQ(apply(), ApplyOutcome::hidden);
    EXPECT_EQ(events.log, Lines{});
    EXPECT_EQ(errorMessage(), std::nullopt);
    EXPECT_TRUE(state().isCollapsed.get());
    expectIdle();
}

TEST_F(ApplierTest, hidesFirstThenShowsAndTriesLostDragsAgain) {
    for (const int process : {501, 502}) placeHidden(process);
    for (const int process : {503, 504}) placeVisible(process);
    wantHidden({502, 503});
    dropsToLose = 1;
    EXPECT_EQ(apply(), ApplyOutcome::hidden) << errorMessage().value_or("");
    EXPECT_EQ(progressTexts,
              (Lines{"Placing org.example.p503 (attempt 1)…", "Placing org.example.p503 (attempt 2)…",
                     "Placing org.example.p501 (attempt 1)…"}));
    EXPECT_TRUE(state().isCollapsed.get());
    expectIdle();
}

TEST_F(ApplierTest, failuresAreSummedUpAndLeaveTheBarExpanded) {
    placeHidden(504);
    wantHidden({504});
    EXPECT_EQ(apply(), ApplyOutcome::hidden);
    for (const int process : {501, 502, 503}) placeVisible(process);
    wantHidden({501, 502, 503});
    refusing = {501, 504};
    const auto whenQuit = state().applyProgress.subscribe([this](const std::string& text) {
        if (text.find("p502") != text.npos) remove(502);
    });
    EXPECT_EQ(apply(), ApplyOutcome::incomplete);
    EXPECT_EQ(errorMessage(),
              "Couldn’t apply 3 changes:\n"
              "Hide org.example.p501: macOS kept it on the visible side.\n"
              "Hide org.example.p502: the item is no longer available; refresh and try again.\n"
              "Show org.example.p504: macOS kept it in its original position.");
    EXPECT_EQ(std::ranges::count(progressTexts, "Placing org.example.p501 (attempt 3)…"), 1);
    EXPECT_EQ(std::ranges::count(progressTexts, "Placing org.example.p502 (attempt 2)…"), 0);
    EXPECT_FALSE(state().isCollapsed.get());
    expectIdle();
}

TEST_F(ApplierTest, aDragIsLookedAfterFifteenTimes) {
    placeVisible(501);
    wantHidden({501});
    refusing = {501};
    Seconds previous{0};
    std::vector<double> spans;
    const auto watch = state().applyProgress.subscribe([&](const std::string&) {
        if (previous.count() > 0) spans.push_back((scheduler.now() - previous).count());
        previous = scheduler.now();
    });
    apply();
    const double drag = 0.06 + 0.08 + 8 * 0.015 + 0.18;
    ASSERT_EQ(spans.size(), 3u);
    for (const auto span : spans) EXPECT_NEAR(span, drag + 15 * 0.16, 0.001);
}

TEST_F(ApplierTest, withoutAccessNothingMoves) {
    placeVisible(501);
    wantHidden({501});
    accessibility.trusted = false;
    core->applier.applyConfigurationAndHide();
    scheduler.advance(Seconds{5});
    EXPECT_EQ(errorMessage(), "Grant Accessibility access before applying this configuration.");
    EXPECT_EQ(events.log, Lines{});

    accessibility.trusted = true;
    permission->refresh();
    placeVisible(502);
    wantHidden({501, 502});
    events.onPosted = [this](const MouseEvent& event) {
        if (event.type == MouseEventType::LeftUp) accessibility.trusted = false;
    };
    auto outcome = start(scheduler, core->applier.applyConfiguration());
    scheduler.advance(Seconds{30});
    EXPECT_FALSE(outcome.isRunning());
    EXPECT_EQ(errorMessage(),
              "Couldn’t apply 2 changes:\nHide org.example.p501: Accessibility access is required.\n"
              "Hide org.example.p502: Accessibility access is required.");
    expectIdle();
}

TEST_F(ApplierTest, cancelledAnywhereItReportsNothing) {
    const auto attempt = [this] {
        placeVisible(501);
        placeHidden(502);
        wantHidden({501, 502});
        core->hiding.expand(Persist::No);
        return start(scheduler, core->applier.applyConfiguration());
    };
    int cancelled = 0;
    for (double delay = 0.001; delay < 2; delay += 0.015, ++cancelled) {
        auto job = attempt();
        scheduler.advance(Seconds{delay});
        if (!job.isRunning()) break;
        core->applier.cancelPendingConfiguration();
        expectIdle();
        const auto posted = events.posted.size();
        settle();
        EXPECT_EQ(events.posted.size(), posted) << "nothing is pressed after the cancellation";
        EXPECT_EQ(errorMessage(), std::nullopt);
        EXPECT_FALSE(state().isCollapsed.get());
    }
    EXPECT_GT(cancelled, 40);
    EXPECT_EQ(apply(), ApplyOutcome::hidden);

    placeVisible(501);
    core->applier.applyConfigurationAndHide();
    scheduler.advance(Seconds{0.5});
    core->applier.applyConfigurationAndHide();
    expectIdle();
    settle();
    EXPECT_TRUE(state().isCollapsed.get()) << "the newer apply goes on";
}

} // namespace
} // namespace tavrin
