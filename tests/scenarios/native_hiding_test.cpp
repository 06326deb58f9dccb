#include "scenarios/acts.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace mac_model {
namespace {

// macOS 27: Tavrin tells macOS what to show.

constexpr const char* radio = "org.example.radio";
constexpr const char* noAnswer = "macOS did not confirm the menu bar change in time.";

/// With room in its menu bar for everything.
TavrinMacOptions mac27(json stored = setUp({radio})) {
    auto options = trustedMac("classic-display", std::move(stored));
    options.changes["macOS"] = {{"major", 27}, {"minor", 0}};
    options.changes["visibilityService"] = "accepts";
    return options;
}

VisibilityLists& lists(TavrinMac& mac) { return mac.mac().visibility(); }

/// Whether the list in force leaves the application out.
bool withholds(TavrinMac& mac, const std::string& bundle) {
    const auto* list = lists(mac).inForce();
    return list && std::ranges::count(list->bundleIdentifiers, bundle) == 0;
}

bool isRestricted(TavrinMac& mac) { return lists(mac).inForce() != nullptr; }

void answerWith(TavrinMac& mac, VisibilityService answer, double delay) {
    lists(mac).answer = answer;
    lists(mac).delay = Seconds{delay};
}

void movePointer(TavrinMac& mac, double x, double y) { mac.done({{"do", "move"}, {"at", {x, y}}}); }

void restOnClock(TavrinMac& mac) { movePointer(mac, 1850, 15); }

void leaveClock(TavrinMac& mac) { movePointer(mac, 700, 500); }

json launched(const std::string& bundle) {
    return {{"bundleIdentifier", bundle}, {"name", bundle}, {"policy", "accessory"}};
}

TEST(NativeHiding, hidesAndRevealsAndSurvivesARestart) {
    auto mac = started(mac27());
    clickControlAndWait(mac);
    EXPECT_TRUE(isCollapsed(mac));
    EXPECT_TRUE(withholds(mac, radio));
    EXPECT_FALSE(withholds(mac, tavrinBundle));
    clickControlAndWait(mac);
    EXPECT_FALSE(isCollapsed(mac));
    EXPECT_FALSE(isRestricted(mac));
    EXPECT_EQ(storedText(mac, "Skerrow.shouldStartCollapsed"), "false");

    clickControlAndWait(mac);
    mac.terminate();
    mac.wait(3.5);
    EXPECT_FALSE(isRestricted(mac));
    EXPECT_EQ(mac.mac().program().leftovers(), std::vector<std::string>{});
    mac.start();
    mac.wait(3);
    EXPECT_TRUE(isCollapsed(mac));
    EXPECT_TRUE(withholds(mac, radio));
    mac.crash();
    mac.wait(0.1);
    EXPECT_FALSE(isRestricted(mac));
}

struct Refusal {
    VisibilityService answer;
    double delay;
    std::string sentence;
};

TEST(NativeHiding, tellsWhyMacOSHidesNothing) {
    const Refusal refusals[]{
        {VisibilityService::Rejects, 0.25,
         "macOS refused to hide menu bar items: Error Domain=MBAssessmentModeErrorDomain Code=1"},
        {VisibilityService::Rejects, 2.9,
         "macOS refused to hide menu bar items: Error Domain=MBAssessmentModeErrorDomain Code=1"},
        {VisibilityService::Silent, 0, noAnswer},
        {VisibilityService::Accepts, 5, noAnswer}};
    for (const auto& [answer, delay, sentence] : refusals) {
        auto mac = started(mac27());
        answerWith(mac, answer, delay);
        clickControl(mac);
        mac.wait(0.2);
        EXPECT_TRUE(isCollapsed(mac)) << "the control shows the wish at once";
        mac.wait(6);
        EXPECT_FALSE(isCollapsed(mac));
        EXPECT_TRUE(mac.shows(sentence)) << sentence;
        EXPECT_FALSE(isRestricted(mac));
        EXPECT_EQ(storedText(mac, "Skerrow.shouldStartCollapsed"), "false");
    }
    auto options = mac27();
    options.changes["visibilityService"] = "absent";
    auto mac = started(options);
    clickControlAndWait(mac);
    EXPECT_FALSE(isCollapsed(mac));
    EXPECT_TRUE(
        mac.shows("This macOS build does not expose the menu bar visibility interface Tavrin relies on."));
    EXPECT_EQ(storedText(mac, "Skerrow.shouldStartCollapsed"), "absent");
}

TEST(NativeHiding, quickClicksCostFewActivationsAndEndInTheLastState) {
    for (const double delay : {0.0, 0.25, 2.9})
        for (const int clicks : {10, 11}) {
            auto mac = started(mac27());
            answerWith(mac, VisibilityService::Accepts, delay);
            for (int click = 0; click < clicks; ++click) {
                clickControl(mac);              // which takes 0.05 s
                if (delay == 0) mac.wait(0.03); // else the bar closes ranks under the pressed pointer
            }
            mac.wait(7);
            const bool isHidden = clicks % 2 == 1;
            EXPECT_EQ(isCollapsed(mac), isHidden) << delay;
            EXPECT_EQ(withholds(mac, radio), isHidden) << delay;
            const auto needed = delay < 0.05 ? static_cast<std::uint64_t>(clicks) : 1U;
            EXPECT_LE(lists(mac).activations(), needed + 2) << delay;
        }
}

TEST(NativeHiding, hidesSoonWhenTheServiceComesBackAfterARevealedHide) {
    auto mac = started(mac27());
    answerWith(mac, VisibilityService::Silent, 0.25);
    clickControl(mac);
    mac.wait(1);
    clickControl(mac);
    mac.wait(1);
    clickControl(mac);
    mac.wait(0.5);
    lists(mac).answer = VisibilityService::Accepts;
    mac.wait(1);
    EXPECT_TRUE(isCollapsed(mac));
    EXPECT_TRUE(withholds(mac, radio));
    EXPECT_FALSE(mac.shows(noAnswer));
}

TEST(NativeHiding, restrictsNothingOnceTavrinHasEnded) {
    for (const auto answer :
         {VisibilityService::Accepts, VisibilityService::Rejects, VisibilityService::Silent})
        for (const double delay : {0.25, 2.9, 5.0})
            for (const double since : {0.0, 0.1, 0.4, 2.8}) {
                auto mac = started(mac27());
                answerWith(mac, answer, delay);
                lists(mac).outlives = Seconds{60}; // what nobody has lifted
                clickControl(mac);
                mac.wait(since);
                mac.terminate();
                mac.wait(3.5);
                EXPECT_FALSE(isRestricted(mac)) << delay << " " << since;
                EXPECT_FALSE(mac.look()["world"]["running"]) << delay << " " << since;
                mac.wait(3);
                EXPECT_FALSE(isRestricted(mac)) << delay << " " << since;
            }
}

/// What a person and the Mac may do to a hide in the middle of it.
using Act = void (*)(TavrinMac&);

TEST(NativeHiding, endsCleanlyInTheMiddleOfAnything) {
    const Act acts[]{[](TavrinMac& mac) { clickControl(mac); }, // reveals
                     [](TavrinMac& mac) { mac.set("launch", launched("org.example.new")); },
                     [](TavrinMac& mac) { restOnClock(mac); },
                     [](TavrinMac& mac) {
                         restOnClock(mac);
                         mac.wait(0.1);
                         leaveClock(mac);
                     }};
    for (const auto act : acts)
        for (const double delay : {0.25, 2.9, 5.0})
            for (const bool isCrash : {false, true}) {
                auto mac = started(mac27());
                clickControlAndWait(mac);
                const auto stored = mac.defaults();
                answerWith(mac, VisibilityService::Accepts, delay);
                act(mac);
                mac.wait(0.2);
                isCrash ? mac.crash() : mac.terminate();
                mac.wait(3.5);
                EXPECT_FALSE(isRestricted(mac)) << delay << isCrash;
                answerWith(mac, VisibilityService::Accepts, 0.25);
                leaveClock(mac);
                mac.start();
                mac.wait(4);
                EXPECT_EQ(withholds(mac, radio), isCollapsed(mac)) << delay << isCrash;
                EXPECT_EQ(mac.defaults()["Skerrow.hiddenItemIdentifiers"],
                          stored["Skerrow.hiddenItemIdentifiers"]);
            }
}

/// Ten seconds of this and that, in an order that the seed decides.
void storm(TavrinMac& mac, std::mt19937& random) {
    for (int step = 0; step < 30; ++step) {
        switch (random() % 6) {
        case 0:
        case 1:
            clickControl(mac);
            break;
        case 2:
            mac.set("launch", launched("org.example.s" + std::to_string(random())));
            break;
        case 3:
            restOnClock(mac);
            break;
        case 4:
            leaveClock(mac);
            break;
        case 5:
            answerWith(mac, static_cast<VisibilityService>(random() % 3), double(random() % 40) / 10);
            break;
        }
        mac.wait(double(random() % 10) / 10);
    }
}

TEST(NativeHiding, shownStateAndListAgreeAfterAnyStorm) {
    for (unsigned seed = 1; seed <= 10; ++seed) {
        std::mt19937 random(seed);
        auto mac = started(mac27());
        storm(mac, random);
        answerWith(mac, VisibilityService::Accepts, 0.25);
        leaveClock(mac);
        mac.wait(8);
        EXPECT_EQ(isCollapsed(mac), withholds(mac, radio)) << seed;
        EXPECT_EQ(isCollapsed(mac), isRestricted(mac)) << seed;
        EXPECT_EQ(mac.stats()["timers"], 0) << seed;
        if (isCollapsed(mac)) clickControlAndWait(mac);
        clickControlAndWait(mac);
        EXPECT_TRUE(withholds(mac, radio)) << seed;
        EXPECT_EQ(storedText(mac, "Skerrow.hiddenItemIdentifiers"), "[\"org.example.radio\"]");
    }
}

TEST(NativeHiding, staysAtItsEndUntilTheAnswerThatIsDue) {
    auto mac = started(mac27());
    answerWith(mac, VisibilityService::Accepts, 2);
    clickControl(mac);
    mac.wait(0.1);
    mac.terminate();
    mac.wait(1.5);
    EXPECT_TRUE(mac.look()["world"]["running"]) << "nobody would lift a list that comes into force later";
    mac.wait(0.5);
    EXPECT_FALSE(mac.look()["world"]["running"]);
}

TEST(NativeHiding, doesNotHideWhileConfigureOpensAtTheStart) {
    auto mac = started(mac27(setUp({radio}, {{"Skerrow.shouldStartCollapsed", true}})), 0.3);
    mac.rightClickItem(tavrinBundle);
    mac.press("Configure Items…");
    mac.wait(5);
    EXPECT_FALSE(isRestricted(mac));
    mac.key("escape");
    mac.wait(1);
    EXPECT_TRUE(isCollapsed(mac));
    EXPECT_TRUE(withholds(mac, radio));
}

TEST(NativeHiding, letsNewcomersInAndKeepsHiddenOnesOut) {
    auto mac = started(mac27(setUp({radio, "org.example.hidden"})));
    clickControlAndWait(mac);
    const auto before = lists(mac).activations();
    mac.set("launch", launched("org.example.hidden"));
    for (int i = 0; i < 20; ++i) {
        mac.set("launch", launched("org.example.n" + std::to_string(i)));
        mac.wait(0.05);
    }
    mac.wait(1);
    EXPECT_TRUE(withholds(mac, "org.example.hidden"));
    EXPECT_FALSE(withholds(mac, "org.example.n0"));
    EXPECT_FALSE(withholds(mac, "org.example.n19"));
    EXPECT_LE(lists(mac).activations(), before + 8) << "one an answer";
    const auto after = lists(mac).activations();
    mac.set("quit", "org.example.n3");
    mac.wait(2);
    EXPECT_EQ(lists(mac).activations(), after) << "an end changes nothing";
}

TEST(NativeHiding, letsInWhatStartsWhileTheAnswerIsAwaited) {
    auto mac = started(mac27());
    answerWith(mac, VisibilityService::Accepts, 2);
    clickControl(mac);
    mac.wait(1);
    mac.set("launch", launched("org.example.new"));
    mac.wait(5);
    EXPECT_TRUE(isCollapsed(mac));
    EXPECT_FALSE(withholds(mac, "org.example.new"));
    EXPECT_TRUE(withholds(mac, radio));
}

TEST(ClockLift, freesTheClockWhileThePointerRestsThere) {
    auto mac = started(mac27());
    clickControlAndWait(mac);
    restOnClock(mac);
    mac.wait(300);
    EXPECT_FALSE(isRestricted(mac));
    EXPECT_TRUE(isCollapsed(mac));
    leaveClock(mac);
    mac.wait(0.5);
    EXPECT_TRUE(withholds(mac, radio));
}

TEST(ClockLift, letsNothingLandThatWasInFlight) {
    auto mac = started(mac27());
    clickControlAndWait(mac);
    answerWith(mac, VisibilityService::Accepts, 1);
    mac.set("launch", launched("org.example.new"));
    mac.wait(0.2);
    restOnClock(mac);
    mac.set("launch", launched("org.example.newer"));
    mac.wait(5);
    EXPECT_FALSE(isRestricted(mac));
    leaveClock(mac);
    mac.wait(2);
    EXPECT_TRUE(withholds(mac, radio));
    EXPECT_FALSE(withholds(mac, "org.example.newer"));
}

TEST(ClockLift, agreesWithTheToggle) {
    auto mac = started(mac27());
    clickControlAndWait(mac);
    restOnClock(mac);
    mac.wait(1);
    clickControlAndWait(mac);
    EXPECT_FALSE(isCollapsed(mac));
    leaveClock(mac);
    mac.wait(1);
    EXPECT_FALSE(isRestricted(mac));
    clickControlAndWait(mac);
    EXPECT_TRUE(withholds(mac, radio));
}

TEST(ClockLift, watchesThePointerOnlyWhileSomethingIsRestricted) {
    auto mac = started(mac27());
    const auto watchers = [&] { return mac.mac().content().onWatched.hasSubscribers(); };
    EXPECT_FALSE(watchers());
    clickControlAndWait(mac);
    EXPECT_TRUE(watchers());
    const auto before = mac.stats()["messages"];
    for (int move = 0; move < 100; ++move) movePointer(mac, 300 + move, 12);
    EXPECT_EQ(mac.stats()["messages"], before);
    EXPECT_EQ(mac.stats()["timers"], 0);
    clickControlAndWait(mac);
    EXPECT_FALSE(watchers());
}

} // namespace
} // namespace mac_model
