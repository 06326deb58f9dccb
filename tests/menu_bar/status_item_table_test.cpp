#include "support/mac_fixture.h"

namespace mac_model {

namespace {

DesktopFile withNeighbours() {
    auto desktop = plainDesktop();
    desktop.applications = {applicationSpec("org.example.a", 501, {itemSpec("a", 30, 100)}),
                            applicationSpec("org.example.b", 502, {itemSpec("b", 40, 200)})};
    return desktop;
}

} // namespace

class StatusItemTableTest : public MacTest {
  protected:
    double xOf(const std::string& name) {
        for (const auto* record : mac->statusItems().items())
            if (record->name == name && record->frame) return record->frame->x;
        return 1e9;
    }
};

TEST_F(StatusItemTableTest, itemTakesTheStoredPlaceOfItsNameInEitherForm) {
    bootAndStart(withNeighbours());
    storePosition("Main_Item", 150);
    const auto main = makeItem("Main_Item", tavrin::squareStatusItemLength);
    EXPECT_EQ(main->frame(), (tavrin::Rect{1512 - 30 - 26, 3, 26, 24}));
    EXPECT_EQ(xOf("b"), 1512 - 30 - 26 - 40);

    storePosition("Main_Item", 500);
    settle();
    EXPECT_EQ(main->frame()->x, 1456) << "editing the place of a living item does nothing";

    mac->preferences().set({".GlobalPreferences", tavrin::DefaultsDomain::Host::Current},
                           "NSStatusItem Preferred Position Spacer_side_v6", {std::int64_t{50}});
    EXPECT_EQ(makeItem("Spacer_Side", 10)->frame()->x, 1502);
    EXPECT_TRUE(
        mac->preferences().keys({".GlobalPreferences", tavrin::DefaultsDomain::Host::Current}).empty())
        << "removing the item forgets this form as well";
    EXPECT_EQ(makeItem("unknown", 10)->frame()->x, 1512 - 30 - 26 - 40 - 10);
}

TEST_F(StatusItemTableTest, lengthIsCappedAndShowsAfterTheBarWasArranged) {
    bootAndStart(withNeighbours());
    storePosition("spacer", 150);
    const auto spacer = makeItem("spacer", 0);
    EXPECT_EQ(spacer->frame()->width, 0);
    EXPECT_EQ(spacer->frame()->x, 1482);

    spacer->setLength(1e300);
    EXPECT_EQ(spacer->frame()->width, 0);
    scheduler.advance(Faults::usualArrangingTime);
    EXPECT_EQ(spacer->frame()->width, 10'000);
    EXPECT_EQ(xOf("b"), 1482 - 10'000 - 40);
    const auto* hidden = mac->statusItems().itemsOf(502).front();
    EXPECT_EQ(hidden->why, HiddenReason::Offscreen);
    EXPECT_EQ(mac->arrangement().accessibilityFrame(*hidden).x, 1482 - 10'000 - 40);

    auto clamped = mac->uncertainties();
    clamped.offscreenFrames = OffscreenFrames::Clamped;
    mac->setUncertainties(clamped);
    EXPECT_EQ(mac->arrangement().accessibilityFrame(*hidden), (tavrin::Rect{-1, 3, 40, 24}));
}

TEST_F(StatusItemTableTest, ownerSeesItsItemUndrawnForAMomentAfterArranging) {
    bootAndStart(withNeighbours());
    const auto item = platform().statusItems.create(20);
    EXPECT_EQ(item->frame(), std::nullopt) << "no window yet";
    scheduler.advance(Faults::usualArrangingTime);
    EXPECT_TRUE(item->frame());
    EXPECT_FALSE(item->isDrawn());
    scheduler.advance(Arrangement::occlusionLag);
    EXPECT_TRUE(item->isDrawn());
}

TEST_F(StatusItemTableTest, removalForgetsThePositionUnlessMacOSKeepsIt) {
    for (const auto removal : {Removal::ForgetsPosition, Removal::KeepsPosition}) {
        auto desktop = withNeighbours();
        desktop.model.removal = removal;
        bootAndStart(desktop);
        storePosition("x", 150);
        storePosition("y", 160);
        storePosition("z", 170);
        makeItem("x", 20).reset();
        const auto hidden = makeItem("y", 20);
        hidden->setVisible(false);
        const auto dragged = makeItem("z", 20);
        EXPECT_TRUE(mac->statusItems().removeItems(programBundle));
        settle();
        EXPECT_EQ(hidden->frame(), std::nullopt);
        EXPECT_EQ(dragged->frame(), std::nullopt);
        for (const std::string name : {"x", "y", "z"})
            EXPECT_EQ(storedPosition(name).has_value(), removal == Removal::KeepsPosition) << name;
        EXPECT_EQ(makeItem("z", 20)->frame(), std::nullopt) << "a removed item stays away under its name";
        hidden->setVisible(true);
        settle();
        EXPECT_EQ(hidden->frame()->x, removal == Removal::KeepsPosition ? 1462 : 1422);
    }
}

TEST_F(StatusItemTableTest, pressReachesTheProgramWhenItsLoopTurns) {
    bootAndStart(withNeighbours());
    const auto item = makeItem("x", 20);
    int presses = 0;
    item->setAction(
        [&](tavrin::StatusItemPress press) { presses += press == tavrin::StatusItemPress::Right ? 10 : 1; });
    const auto* record = mac->arrangement().itemAt({item->frame()->middle()});
    ASSERT_TRUE(record);
    EXPECT_TRUE(mac->statusItems().press(record->identifier, tavrin::StatusItemPress::Right));
    EXPECT_EQ(presses, 0);
    settle();
    EXPECT_EQ(presses, 10);
    EXPECT_EQ(mac->arrangement().itemAt({20, 5}), nullptr);
    EXPECT_FALSE(mac->statusItems().press(mac->arrangement().itemAt({1500, 0})->identifier, {}));
}

TEST_F(StatusItemTableTest, behindTheNotchLastsUntilTheItemIsMadeAnewOrForGood) {
    auto desktop = withNeighbours();
    desktop.screens[0].leftMenuBarArea = tavrin::Rect{0, 0, 663, 38};
    desktop.screens[0].rightMenuBarArea = tavrin::Rect{849, 0, 663, 38};
    bootAndStart(desktop);
    for (const auto which : {BehindNotch::PresentItems, BehindNotch::AllItems}) {
        auto item = makeItem("x", 26);
        ASSERT_TRUE(mac->statusItems().setBehindNotch(programBundle, which));
        settle();
        EXPECT_EQ(item->frame()->x, 823);
        EXPECT_FALSE(item->isDrawn());
        item = makeItem("y", 26);
        EXPECT_EQ(item->isDrawn(), which == BehindNotch::PresentItems);
    }
    EXPECT_FALSE(mac->statusItems().setBehindNotch("org.example.none", BehindNotch::AllItems));
}

TEST_F(StatusItemTableTest, screensMayVanishWhileTheyAreRearranged) {
    bootAndStart(withNeighbours());
    const auto item = makeItem("x", 20);
    std::vector<std::size_t> seen;
    const auto watch =
        platform().screens.onChanged([&] { seen.push_back(platform().screens.screens().size()); });
    mac->faults().screensVanishBriefly = true;
    mac->screens().set({screenSpec({0, 0, 1512, 982}), screenSpec({1512, 0, 800, 600}, 24)});
    scheduler.advance(tavrin::Seconds{0.1});
    EXPECT_EQ(item->frame(), std::nullopt);
    settle();
    EXPECT_EQ(seen, (std::vector<std::size_t>{0, 2}));
    EXPECT_EQ(mac->arrangement().itemAt({2311, 5}), mac->arrangement().itemAt({1511, 5}))
        << "one bar a display";
}

} // namespace mac_model
