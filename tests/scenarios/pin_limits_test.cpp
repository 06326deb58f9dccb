#include "scenarios/pin_acts.h"

namespace mac_model {
namespace {

TEST(PinLimits, takeThreeMessagesANodeAtMost) {
    json items = json::array();
    for (int i = 0; i < 400; ++i) items.push_back(entry("Entry " + std::to_string(i)));
    auto mac = started(macWithPins({pin("P", {"Entry 399"})}, {notesApplication(statusItem(items))}));
    const auto sent = [&] { return mac.stats()["messages"].value(notesBundle, 0); };
    const int before = sent();
    runPin(mac, "P");
    EXPECT_EQ(chosen(mac).size(), 1u);
    EXPECT_LE(sent() - before, 3 * 401 + 20) << "the rest finds, opens and closes";
}

TEST(PinLimits, costOneTimeOutWhenAnApplicationHangsAndTheMainThreadNothing) {
    auto mac = started(macWithPins({pin("P", {"Sync Now"})}));
    mac.set("hang", notesBundle);
    request(mac, "P");
    mac.wait(0.2);
    mac.rightClickItem(tavrinBundle);
    EXPECT_TRUE(mac.shows("Configure Items…")) << "the control answers while the run waits";
    mac.wait(0.6);
    EXPECT_EQ(lastFailure(mac, "P"), "none");
    mac.wait(0.3);
    EXPECT_EQ(lastFailure(mac, "P"), "Notes isn't responding.");
}

TEST(PinLimits, costABoundedTimeWhenAnApplicationHangsInTheMiddle) {
    for (const double after : {0.0, 0.001, 0.002, 0.004, 0.006, 0.01, 0.05, 0.1, 0.3}) {
        SCOPED_TRACE(after);
        auto mac =
            started(macWithPins({pin("P", {"Accounts", "Work", "Fetch"}), barPin("Q", {"File", "New"})}));
        request(mac, "P");
        mac.wait(after);
        mac.set("hang", notesBundle);
        mac.wait(4);
        const bool hasRun = after >= 0.05; // a whole run takes less on an application that answers
        EXPECT_EQ(lastFailure(mac, "P"), hasRun ? "none" : "Notes isn't responding.");
        EXPECT_EQ(chosen(mac).size(), hasRun ? 1u : 0u);
        runPin(mac, "Q");
        EXPECT_EQ(lastFailure(mac, "Q"), "none") << "the next one runs";
        mac.set("resume", notesBundle);
    }
}

TEST(PinLimits, runOneAtATime) {
    auto mac = started(macWithPins({pin("P", {"Sync Now"}), pin("Q", {"Accounts", "Home"})}));
    mac.set("hang", notesBundle);
    request(mac, "P");
    mac.wait(0.1);
    request(mac, "Q");
    EXPECT_TRUE(mac.shows("\"Q\" didn't run"));
    EXPECT_TRUE(mac.shows("Another pinned action is still running."));
    EXPECT_EQ(lastFailure(mac, "Q"), "none") << "and this is no failure of it";
    mac.set("resume", notesBundle);
    mac.wait(5);
    EXPECT_EQ(chosen(mac), Strings{synced});
    runPin(mac, "Q");
    EXPECT_EQ(chosen(mac), Strings{notesBundle + ": > Accounts > Home"});
}

TEST(PinLimits, runOnceWhenAskedForTwiceWithinHalfASecond) {
    for (const auto& [pause, runs] : {std::pair{0.1, 1u}, {0.3, 1u}, {0.55, 2u}, {3.0, 2u}}) {
        auto mac = started(macWithPins({pin("P", {"Sync Now"})}));
        request(mac, "P");
        mac.wait(pause);
        request(mac, "P");
        mac.wait(5);
        EXPECT_EQ(chosen(mac).size(), runs) << pause;
    }
}

TEST(PinLimits, runAgainAndAgain) {
    auto mac = started(macWithPins({pin("P", {"Sync Now"}), barPin("Q", {"File", "New"})}));
    for (int i = 0; i < 20; ++i) {
        runPin(mac, i % 2 == 0 ? "P" : "Q");
        EXPECT_EQ(chosen(mac).size(), 1u);
    }
    mac.wait(20);
    EXPECT_EQ(mac.stats()["timers"], 0) << "nothing is left behind";
    EXPECT_EQ(mac.stats()["tasks"], 0);
}

/// At any moment of a run, whatever the application does: Tavrin ends soon and leaves no menu behind.
TEST(PinLimits, letTavrinQuitAtAnyMoment) {
    for (const bool hangs : {false, true})
        for (const bool isBar : {false, true})
            for (int moment = 0; moment < 14; ++moment) {
                SCOPED_TRACE(std::to_string(moment) + (hangs ? " hung" : "") + (isBar ? " bar" : ""));
                const auto bundle = isBar ? editorBundle : notesBundle;
                auto mac = started(macWithPins({isBar ? barPin("P", {"File", "Export", "As PDF"})
                                                      : pin("P", {"Accounts", "Work", "Fetch"})}));
                mac.set("menus", {{bundle, {{"fillsAfter", 0.1}}}});
                request(mac, "P");
                mac.wait(0.05 * moment);
                if (hangs) mac.set("hang", bundle);
                mac.terminate();
                mac.wait(2);
                EXPECT_TRUE(mac.itemsOf(tavrinBundle).empty()) << "it has ended";
                if (!hangs) {
                    EXPECT_EQ(openMenus(mac), 0);
                }
                if (hangs) mac.set("resume", bundle);
                mac.start();
                mac.wait(3);
                runPin(mac, "P");
                EXPECT_EQ(lastFailure(mac, "P"), "none") << "and runs it the next time";
            }
}

TEST(PinLimits, outliveAnAlertThatNobodyAnswers) {
    auto mac =
        started(macWithPins({pin("P", {"Sync Now"}, {{"hasConfirmedFirstRun", false}}), pin("Q", {"Twin"})}));
    request(mac, "P");
    mac.wait(1);
    mac.rightClickItem(tavrinBundle);
    mac.wait(1);
    EXPECT_TRUE(mac.shows("Run \"P\"?"));
    EXPECT_FALSE(mac.shows("Q")) << "one question at a time";
    mac.set("quit", notesBundle);
    mac.press("Run");
    mac.wait(2);
    EXPECT_EQ(lastFailure(mac, "P"), "Notes isn't running. Open it and try again.");
    mac.terminate();
    mac.wait(1);
    EXPECT_TRUE(mac.surfacesOf(tavrinBundle).empty());
}

} // namespace
} // namespace mac_model
