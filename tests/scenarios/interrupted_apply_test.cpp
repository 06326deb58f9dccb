#include "scenarios/applying_acts.h"

namespace mac_model {
namespace {

/// What may happen in the middle of an apply.
struct Interruption {
    const char* name;
    json command;
    enum class Hand { None, Presses } hand = Hand::None;
};

class InterruptedApply : public testing::TestWithParam<Interruption> {};

TEST_P(InterruptedApply, leavesThePointerFreeAndTheChoiceWhole) {
    for (const double moment : {0.3, 0.58, 0.7, 1.3}) {
        auto mac = started(controlInMidBar({wifi, sound}, "classic-display"));
        apply(mac);
        const auto before = mac.look()["pointer"]["at"];
        mac.wait(moment);
        mac.command(GetParam().command);
        const auto pressedAt = mac.look()["pointer"]["at"];
        mac.wait(20);
        // A drag that ends takes the pointer back to where it began, while the hand presses or after it.
        const bool isWherePressed =
            GetParam().hand == Interruption::Hand::Presses && mac.look()["pointer"]["at"] == pressedAt;
        expectPointerIsFree(mac, isWherePressed ? pressedAt : before);
        EXPECT_EQ(storedHidden(mac).size(), 2u);
        EXPECT_EQ(mac.stats()["tasks"], 0);
        mac.command({{"do", "terminate"}}); // refused when that is what has interrupted it
        mac.wait(2);
        EXPECT_EQ(mac.mac().program().leftovers(), std::vector<std::string>{}) << moment;
        for (const auto& item : mac.look()["menuBar"]) EXPECT_NE(item.value("why", ""), "offscreen");
    }
}

INSTANTIATE_TEST_SUITE_P(
    By, InterruptedApply,
    testing::Values(Interruption{"stop", {{"do", "press"}, {"text", "Stop"}}, Interruption::Hand::Presses},
                    Interruption{
                        "click", {{"do", "click"}, {"item", tavrinBundle}}, Interruption::Hand::Presses},
                    Interruption{"hang", {{"do", "set"}, {"hang", "com.apple.controlcenter"}}},
                    Interruption{"quitOwner", {{"do", "set"}, {"quit", "org.example.notes"}}},
                    Interruption{"revoke", {{"do", "set"}, {"trusted", false}}},
                    Interruption{"terminate", {{"do", "terminate"}}},
                    Interruption{"reopen", {{"do", "start"}}}),
    [](const auto& info) { return info.param.name; });

TEST(Applying, losesNothingWhenADisplayIsUnplugged) {
    for (const double moment : {0.3, 0.7, 0.9, 2.0}) {
        auto mac = started(controlInMidBar({wifi, sound}, "two-displays"));
        apply(mac);
        const auto before = mac.look()["pointer"]["at"];
        mac.wait(moment);
        mac.set("screens", json::array({mac.look()["screens"][0]}));
        mac.wait(20);
        expectPointerIsFree(mac, before);
        EXPECT_EQ(storedHidden(mac).size(), 2u);
        EXPECT_FALSE(isRightOfControl(mac, "Wi-Fi")) << moment;
        // Its two items have one identifier, so that neither can be told from the other.
        EXPECT_TRUE(showsPart(mac, "Couldn’t apply 2 changes:\\nShow File Sync ")) << moment;
        EXPECT_TRUE(showsPart(mac, ": several items of its app share one identifier; Tavrin can’t tell "
                                   "which one to move."));
        EXPECT_EQ(mac.stats()["tasks"], 0);
    }
}

TEST(Applying, aHandOnTheMouseCostsAttemptsAndNoMore) {
    auto mac = started(controlInMidBar({wifi, sound}));
    mac.set("personMovesPointerDuringDrags", true);
    apply(mac);
    const auto before = mac.look()["pointer"]["at"];
    waitForApply(mac);
    expectPointerIsFree(mac, before);
    EXPECT_TRUE(isCollapsed(mac));
    EXPECT_EQ(storedHidden(mac).size(), 2u);
}

TEST(Applying, tellsOfAnItemWhoseOwnerQuitsWhileItIsDragged) {
    auto mac = started(crowdOnTheVisibleSide(3));
    apply(mac);
    const auto before = mac.look()["pointer"]["at"];
    waitForCarriedItem(mac);
    mac.set("quit", ownerOfCarriedItem(mac));
    waitForApply(mac);
    expectPointerIsFree(mac, before);
    EXPECT_EQ(storedHidden(mac).size(), 3u) << "it is hidden again when it comes back";
    EXPECT_TRUE(
        mac.shows("Couldn’t apply 1 change:\nHide Item 0: the item is no longer available; refresh and "
                  "try again."));
    for (const auto& item : mac.look()["menuBar"])
        if (item["owner"] != tavrinBundle) EXPECT_LT(item["frame"][0], mac.control()["frame"][0]);
}

} // namespace
} // namespace mac_model
