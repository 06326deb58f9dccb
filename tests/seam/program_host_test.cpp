#include "support/mac_fixture.h"

namespace mac_model {

namespace {
using Log = std::vector<std::string>;
}

class ProgramHostTest : public MacTest {};

TEST_F(ProgramHostTest, launchReopenAndQuitInOrder) {
    bootAndStart(plainDesktop());
    const auto first = platform().application.processIdentifier();
    mac->program().start();
    settle();
    EXPECT_TRUE(mac->processes().quit(programBundle));
    settle();
    EXPECT_EQ(program.log, (Log{"launched", "reopened", "asked", "destroyed"}));
    EXPECT_FALSE(mac->program().isRunning());
    EXPECT_EQ(mac->program().leftovers(), Log{});
    mac->program().start();
    settle();
    EXPECT_NE(platform().application.processIdentifier(), first);
}

TEST_F(ProgramHostTest, quitPutOffWaitsForTheReplyAndIsAskedAnew) {
    bootAndStart(plainDesktop());
    program.reply = tavrin::TerminateReply::Later;
    platform().application.terminate();
    platform().application.terminate();
    settle();
    EXPECT_EQ(program.log, (Log{"launched", "asked", "asked"}));
    platform().application.replyToShouldTerminate(false);
    platform().application.replyToShouldTerminate(true);
    settle();
    EXPECT_TRUE(mac->program().isRunning()) << "the second reply answers nothing";
    mac->program().terminate();
    settle();
    platform().application.replyToShouldTerminate(true);
    EXPECT_FALSE(mac->program().isRunning());
    EXPECT_NE(program.platform, nullptr) << "not destroyed under its own feet";
    settle();
    EXPECT_EQ(program.platform, nullptr);
}

TEST_F(ProgramHostTest, nothingTheProgramDoesAfterItsEndReachesTheMac) {
    auto desktop = plainDesktop();
    desktop.applications = {applicationSpec("org.example.a", 501, {itemSpec("a", 30, 100)})};
    bootAndStart(desktop);
    storePosition("x", 50);
    auto item = makeItem("x", 20);
    int calls = 0;
    auto watch = platform().workspace.onApplicationsChanged([&] { ++calls; });
    item->setAction([&](auto) { ++calls; });
    program.onDestruction = [&](tavrin::Platform& platform) {
        platform.defaults.set(platform.defaults.ownDomain(), "late", {true});
        platform.defaults.remove(platform.defaults.ownDomain(), "NSStatusItem Preferred Position x");
        item->setLength(5000);
        item.reset();
        watch.cancel();
        EXPECT_EQ(platform.statusItems.create(20)->frame(), std::nullopt);
        EXPECT_EQ(platform.accessibility.attribute(platform.accessibility.application(501), "AXRole").error(),
                  tavrin::AccessibilityError::CannotComplete);
        EXPECT_FALSE(platform.workspace.openUrl("x:y"));
    };
    mac->statusItems().press(mac->statusItems().items().back()->identifier, tavrin::StatusItemPress::Left);
    mac->program().crash();
    settle();
    EXPECT_EQ(program.log, (Log{"launched", "destroyed"}));
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(mac->preferences().keys(mac->programDomain()), Log{"NSStatusItem Preferred Position x"});
    EXPECT_EQ(mac->statusItems().items().size(), 1U);
    EXPECT_EQ(mac->program().leftovers(), Log{});
}

TEST_F(ProgramHostTest, leftoversAreNamed) {
    bootAndStart(plainDesktop());
    const auto forgotten = makeItem("x", 20);
    const auto timer = scheduler.callEvery(tavrin::Seconds{1}, [] {});
    mac->program().crash();
    settle();
    EXPECT_EQ(mac->program().leftovers(), (Log{"The program left behind timers: 1.",
                                               "The program left behind references to the platform: 1."}));
    scheduler.cancelTimer(timer);
}

TEST_F(ProgramHostTest, changesOfPreferencesThatWereNotHandedOverAreLost) {
    bootAndStart(plainDesktop());
    auto& defaults = platform().defaults;
    const auto own = defaults.ownDomain();
    defaults.set(own, "old", {true});
    defaults.set(own, "gone", {true});
    scheduler.advance(tavrin::Seconds{11});
    defaults.set(own, "handed over", {true});
    defaults.synchronize(own);
    defaults.set(own, "old", {false});
    defaults.set(own, "old", {std::int64_t{2}});
    defaults.remove(own, "gone");
    defaults.set(own, "new", {true});
    EXPECT_EQ(defaults.keys(own), (Log{"handed over", "new", "old"})) << "the process sees them";
    mac->program().crash();
    EXPECT_EQ(mac->preferences().keys(own), (Log{"gone", "handed over", "old"}));
    EXPECT_EQ(mac->preferences().boolean(own, "old"), true);
}

TEST_F(ProgramHostTest, quitStoresThePlacesOfNamedItems) {
    auto desktop = plainDesktop();
    desktop.applications = {applicationSpec("org.example.a", 501, {itemSpec("a", 30, 100)})};
    bootAndStart(desktop);
    storePosition("x", 50);
    auto stored = makeItem("x", 20);
    auto fresh = makeItem("y", 20);
    program.onDestruction = [&](tavrin::Platform&) { stored.reset(), fresh.reset(); };
    mac->program().terminate();
    settle();
    EXPECT_EQ(storedPosition("x"), 50);
    EXPECT_EQ(storedPosition("y"), 101) << "left of what stands right of it";
}

TEST_F(ProgramHostTest, activationAndProcessListReachTheProgramWhenItsLoopTurns) {
    bootAndStart(plainDesktop());
    int activations = 0;
    const auto watch = platform().application.onDidBecomeActive([&] { ++activations; });
    std::vector<std::size_t> counts;
    auto& workspace = platform().workspace;
    const auto list =
        workspace.onApplicationsChanged([&] { counts.push_back(workspace.runningApplications().size()); });
    auto& application = platform().application;
    application.activate();
    settle();
    EXPECT_FALSE(application.isActive()) << "a request may be declined";
    application.activateIgnoringOthers();
    settle();
    EXPECT_TRUE(application.isActive());
    EXPECT_EQ(activations, 1);
    auto regular = applicationSpec("org.example.front", 0);
    regular.policy = Policy::Regular;
    ASSERT_TRUE(mac->processes().launch(regular));
    EXPECT_EQ(workspace.runningApplications().size(), 1U);
    settle();
    ASSERT_TRUE(mac->processes().quit("org.example.front"));
    settle();
    EXPECT_EQ(counts, (std::vector<std::size_t>{2, 1}));
    EXPECT_EQ(activations, 2) << "it became active again when the other had gone";

    auto dropped =
        platform().screens.onChanged([] { ADD_FAILURE() << "was unsubscribed before the loop turned"; });
    scheduler.callInWorldAfter(tavrin::Seconds{1}, [&] {
        mac->screens().onNotice.emit();
        dropped.cancel();
    });
    settle();
}

} // namespace mac_model
