#include "platform/event_monitors.h"
#include "platform/visibility_service.h"
#include "support/mac_fixture.h"

namespace mac_model {
namespace {

using Assertion = std::unique_ptr<tavrin::VisibilityAssertion>;

DesktopFile hostedDesktop() {
    auto desktop = plainDesktop();
    desktop.macOS = {27, 0};
    desktop.visibilityService = VisibilityService::Accepts;
    auto wifi = itemSpec("wifi", 36, 20);
    wifi.identifier = "com.apple.menuextra.wifi";
    auto clock = itemSpec("Clock", 100, 10);
    clock.fixed = true;
    clock.identifier = "com.apple.menuextra.clock";
    desktop.applications = {applicationSpec("com.apple.controlcenter", 500, {clock, wifi}),
                            applicationSpec("org.example.a", 501, {itemSpec("a", 30, 100)}),
                            applicationSpec("org.example.b", 502, {itemSpec("b", 40, 200)})};
    return desktop;
}

class AllowListTest : public MacTest {
  protected:
    AllowListTest() { bootAndStart(hostedDesktop()); }

    Assertion make(std::vector<int> numbers, std::vector<std::string> bundles) {
        return platform().visibilityService.make(numbers, bundles);
    }

    /// Hides all but these.
    Assertion show(std::vector<int> numbers, std::vector<std::string> bundles) {
        auto assertion = make(std::move(numbers), std::move(bundles));
        assertion->activate([this](const auto& error) {
            answeredOnMain = answeredOnMain || scheduler.isMainThread();
            answers.push_back(error.value_or("accepted"));
        });
        return assertion;
    }

    std::string drawn() {
        std::string names;
        for (const auto* record : mac->statusItems().fromLeftToRight())
            if (record->isDrawn) names += (names.empty() ? "" : " ") + record->name;
        return names;
    }

    void wait(double seconds) { scheduler.advance(tavrin::Seconds{seconds}); }

    std::vector<std::string> answers;
    std::vector<Assertion> kept; // beyond the program's end
    bool answeredOnMain = false;
};

TEST_F(AllowListTest, hidesWhatIsNotOnItAndTheOthersCloseRanks) {
    EXPECT_EQ(drawn(), "b a wifi Clock");
    const auto list = show({2}, {"org.example.b", "com.apple.controlcenter"});
    EXPECT_TRUE(answers.empty()) << "never within the call";
    wait(0.24);
    EXPECT_EQ(drawn(), "b a wifi Clock");
    wait(0.1);
    EXPECT_EQ(drawn(), "b Clock") << "the system's items go by number, whatever the bundles say";
    EXPECT_EQ(answers, std::vector<std::string>{"accepted"});
    EXPECT_FALSE(answeredOnMain);
    EXPECT_EQ(mac->statusItems().itemsOf(502).front()->frame->maxX(), 1512 - 100);
    EXPECT_EQ(mac->statusItems().itemsOf(501).front()->why, HiddenReason::Restricted);
    list->invalidate();
    wait(0.1);
    EXPECT_EQ(drawn(), "b a wifi Clock");
}

TEST_F(AllowListTest, answersAsItIsSet) {
    auto& service = mac->visibility();
    service.answer = VisibilityService::Rejects;
    auto list = show({}, {});
    settle();
    EXPECT_EQ(answers, std::vector<std::string>{"Error Domain=MBAssessmentModeErrorDomain Code=1"});
    service.answer = VisibilityService::Silent;
    list = show({}, {});
    wait(100);
    EXPECT_EQ(answers.size(), 1U);
    service.answer = VisibilityService::Accepts;
    service.delay = tavrin::Seconds{5};
    list = show({}, {});
    service.delay = tavrin::Seconds{0.25};
    wait(4);
    list->invalidate();
    wait(2);
    EXPECT_EQ(answers.size(), 2U) << "it answers also what nobody waits for";
    EXPECT_EQ(drawn(), "b a wifi Clock") << "and hides nothing by it";
}

TEST_F(AllowListTest, theNewestAcceptedOfAProcessIsInForce) {
    const auto first = show({2, 6}, {"org.example.a"});
    settle();
    auto second = show({2, 6}, {"org.example.b"});
    settle();
    EXPECT_EQ(drawn(), "b wifi Clock");
    const auto others =
        mac->visibility().activate(9999, {{2}, {"org.example.a", "org.example.b"}}, [](const auto&) {});
    settle();
    EXPECT_EQ(drawn(), "b Clock") << "what one process withholds no other shows";
    mac->visibility().invalidate(others);
    second.reset();
    settle();
    EXPECT_EQ(drawn(), "a wifi Clock");
}

TEST_F(AllowListTest, endsWithItsProcess) {
    kept.push_back(show({2}, {}));
    settle();
    ASSERT_EQ(drawn(), "Clock");
    mac->program().crash();
    settle();
    EXPECT_EQ(drawn(), "b a wifi Clock");
    mac->visibility().outlives = tavrin::Seconds{2};
    mac->program().start();
    settle();
    kept.push_back(show({2}, {}));
    wait(0.1); // the answer is still to come
    mac->program().crash();
    wait(1);
    EXPECT_EQ(drawn(), "Clock");
    wait(1.1);
    EXPECT_EQ(drawn(), "b a wifi Clock");
}

TEST_F(AllowListTest, anotherAgentKnowsNothingOfIt) {
    const auto list = show({2}, {});
    settle();
    const auto inFlight = show({2}, {});
    ASSERT_TRUE(mac->processes().quit("com.apple.MenuBarAgent"));
    settle();
    EXPECT_EQ(drawn(), "");
    ASSERT_TRUE(mac->processes().launch(applicationSpec("com.apple.MenuBarAgent", 0)));
    settle();
    EXPECT_EQ(drawn(), "b a wifi Clock");
    EXPECT_EQ(answers.size(), 1U) << "what was under way is never answered";
}

TEST_F(AllowListTest, aFlashBetweenTwoListsIsCounted) {
    auto first = show({2, 6}, {"org.example.a"});
    settle();
    auto second = show({2, 6}, {"org.example.a"});
    settle();
    first.reset();
    settle();
    EXPECT_EQ(mac->statistics().flashes, 0U) << "the second was in force before the first was lifted";
    first = std::move(second);
    second = show({2, 6}, {});
    wait(0.1);
    first.reset();
    settle();
    EXPECT_EQ(drawn(), "wifi Clock");
    EXPECT_EQ(mac->statistics().flashes, 1U) << "b was drawn between the two; a had been in sight before";
    second.reset();
    settle();
    second = show({2, 6}, {});
    settle();
    EXPECT_EQ(mac->statistics().flashes, 1U) << "what was shown meanwhile is no flash";
    EXPECT_EQ(mac->statistics().activations, 4U);
}

TEST_F(AllowListTest, theAgentKeepsPlacesOfItsOwn) {
    storePosition("own", 150);
    EXPECT_EQ(makeItem("own", 26)->frame()->maxX(), 1512 - 100 - 36 - 30 - 40) << "left of all";
    auto model = mac->uncertainties();
    model.hostedPositions = HostedPositions::Seeded;
    mac->setUncertainties(model);
    storePosition("own", 150);
    EXPECT_EQ(makeItem("own", 26)->frame()->maxX(), 1512 - 100 - 36 - 30);
}

TEST_F(AllowListTest, aPostedDragReachesTheOwnerAsAClickWhereThatIsSet) {
    const auto item = makeItem("own", 26);
    int presses = 0;
    item->setAction([&](tavrin::StatusItemPress) { ++presses; });
    const auto drag = [&] {
        const auto from = item->frame()->middle();
        auto& person = mac->person();
        person.moveTo(from, PressedBy::PostedEvents);
        person.press(MouseButton::Left, {Modifier::Command}, PressedBy::PostedEvents);
        person.moveTo({from.x + 60, from.y}, PressedBy::PostedEvents);
        person.release(MouseButton::Left, PressedBy::PostedEvents);
        settle();
    };
    const auto place = item->frame();
    drag();
    EXPECT_EQ(presses, 1);
    EXPECT_EQ(item->frame(), place);
    auto model = mac->uncertainties();
    model.hostedDrags = HostedDrags::Work;
    mac->setUncertainties(model);
    drag();
    EXPECT_EQ(presses, 1);
    EXPECT_GT(item->frame()->x, place->x);
}

TEST_F(AllowListTest, copiesOfEventsTellOfOthersAlone) {
    const auto item = makeItem("own", 26);
    std::vector<tavrin::WatchedEventType> seen;
    const auto watch = platform().eventMonitors.watch(
        98, [&](const tavrin::WatchedEvent& event) { seen.push_back(event.type); });
    auto& person = mac->person();
    const auto click = [&](tavrin::Point at) {
        person.moveTo(at);
        person.press(MouseButton::Left, {});
        person.moveTo({at.x, at.y + 300});
        person.release(MouseButton::Left);
        settle();
    };
    click({700, 400});
    using enum tavrin::WatchedEventType;
    EXPECT_EQ(seen, (std::vector{Moved, LeftDown, LeftDragged}));
    seen.clear();
    click(item->frame()->middle());
    EXPECT_TRUE(seen.empty()) << "those for the program's own item aren't among them";
    (void)person.scroll({.deltaY = 3});
    settle();
    EXPECT_TRUE(seen.empty()) << "only the types that were asked for";
}

} // namespace
} // namespace mac_model
