#include "menu_bar/hosted_layout.h"
#include "menu_bar/status_layout.h"
#include "support/mac_fixture.h"

#include <gtest/gtest.h>

namespace mac_model {

namespace {

struct Bar {
    std::vector<LayoutItem> items;
    ScreenSpec screen = screenSpec({0, 0, 1000, 800});
    LayoutRules rules{.uncertainties = {}, .dropsOwnersOfLongItems = false, .menusEnd = 200};
    bool isHosted = false;

    Bar& add(double width, std::optional<double> position = std::nullopt, std::int32_t owner = 1) {
        LayoutItem item;
        item.identifier = StatusItemIdentifier{items.size() + 1};
        item.owner = owner;
        item.width = width;
        item.preferredPosition = position;
        items.push_back(item);
        return *this;
    }

    /// Each item in the order of creation as "x" and, when it isn't drawn, why not.
    std::string places() const {
        auto placed =
            isHosted ? layOutHostedBar(items, screen, rules).items : layOutStatusItems(items, screen, rules);
        std::ranges::sort(placed, {}, &PlacedItem::identifier);
        std::string text;
        for (const auto& place : placed) {
            text += (text.empty() ? "" : " ") + std::to_string(static_cast<int>(place.frame.x));
            if (place.why) text += ":" + std::string(nameOf(*place.why));
        }
        return text;
    }
};

ScreenSpec notched() {
    auto screen = screenSpec({0, 0, 1000, 800}, 38);
    screen.leftMenuBarArea = tavrin::Rect{0, 0, 450, 38};
    screen.rightMenuBarArea = tavrin::Rect{550, 0, 450, 38};
    return screen;
}

} // namespace

TEST(StatusLayout, runFollowsPositionsWithNewItemsAtTheLeftAndFixedOnesAtTheRight) {
    auto bar = Bar().add(10).add(20, 300).add(30, 0).add(40, 300).add(50).add(60, 900).add(70, 5);
    bar.items[5].isFixed = true;
    bar.items[6].isFixed = true;
    bar.items[5].isClock = true;
    EXPECT_EQ(bar.places(), "770 820 840 780 720 940 870");

    bar.rules.uncertainties.zeroPosition = ZeroPosition::Leftmost;
    EXPECT_EQ(bar.places(), "800 850 770 810 720 940 870");
}

TEST(StatusLayout, fullBarDropsWhatMeetsTheMenus) {
    EXPECT_EQ(Bar().add(400, 1).add(395, 2).add(30, 3).add(30, 4).places(),
              "600 205 175:dropped 145:dropped");
}

TEST(StatusLayout, notchHidesWhatItCoversButNotASliver) {
    auto bar = Bar().add(440, 1).add(40, 2).add(90, 3).add(20, 4);
    bar.screen = notched();
    EXPECT_EQ(bar.places(), "560 520 430 410");
    bar = Bar().add(450, 1).add(40, 2).add(60, 3).add(20, 4);
    bar.screen = notched();
    EXPECT_EQ(bar.places(), "550 510:notch 450:notch 430");

    bar = Bar().add(100, 1).add(26, 2).add(30, 3);
    bar.screen = notched();
    bar.items[1].isForcedBehindNotch = true;
    EXPECT_EQ(bar.places(), "900 524:notch 870") << "the others close up";
}

TEST(StatusLayout, longItemPushesItsLeftNeighboursOffTheScreen) {
    auto bar = Bar().add(100, 1).add(5000, 2).add(30, 3);
    EXPECT_EQ(bar.places(), "900 -4100 -4130:offscreen");

    bar.rules.uncertainties.longItem = LongItem::StopsAtMenus;
    EXPECT_EQ(bar.places(), "900 -4100 -4130:offscreen") << "only where the screen is very wide";
    bar.screen = screenSpec({0, 0, 3000, 800});
    EXPECT_EQ(bar.places(), "2900 230 200");
}

TEST(StatusLayout, agentOfMacOS27DropsALongItemWhole) {
    auto bar = Bar().add(100, 1).add(500, 2).add(30, 3);
    bar.isHosted = true;
    EXPECT_EQ(bar.places(), "900 900:dropped 870");
    bar.items[1].width = 499;
    EXPECT_EQ(bar.places(), "900 401 371") << "shorter than half the screen, it pushes";
}

TEST(StatusLayout, agentOfMacOS27PutsWhatFindsNoRoomBehindAButton) {
    auto bar = Bar().add(400, 1).add(374, 2).add(30, 3).add(5, 4);
    bar.isHosted = true;
    EXPECT_EQ(bar.places(), "600 226 200:overflow 200:overflow") << "the menus end at 200";
    bar.screen = notched();
    EXPECT_EQ(bar.places(), "600 550:overflow 550:overflow 550:overflow");
}

TEST(StatusLayout, faultHidesTheOwnersOtherItems) {
    auto bar = Bar().add(26, 1, 7).add(5000, 2, 7).add(30, 0.5, 8);
    bar.rules.dropsOwnersOfLongItems = true;
    EXPECT_EQ(bar.places(), "944:dropped -4056 970");
}

TEST(StatusLayout, restrictedItemWaitsBelowTheScreen) {
    auto bar = Bar().add(26, 1).add(30, 2);
    bar.items[0].isRestricted = true;
    EXPECT_EQ(bar.places(), "-1:restricted 970");
}

TEST(StatusLayout, otherScreensShowTheItemAsFarFromTheirRightEdge) {
    const auto other = screenSpec({1000, -200, 1600, 900}, 24);
    const auto frame = frameOnScreen({900, 3, 26, 24}, screenSpec({0, 0, 1000, 800}), other);
    EXPECT_EQ(frame, (tavrin::Rect{2500, -200, 26, 24}));
}

} // namespace mac_model
