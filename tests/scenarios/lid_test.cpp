#include "scenarios/applying_acts.h"

namespace mac_model {
namespace {

void expectNothingHeld(TavrinMac& mac) {
    const auto pointer = mac.look()["pointer"];
    EXPECT_TRUE(pointer["buttons"].empty());
    EXPECT_EQ(pointer["visible"], true);
}

TEST(ClosedLid, leavesNothingHalfDoneInMidApply) {
    for (const double after : {0.1, 0.3, 0.5, 0.6, 0.7, 0.9, 1.2}) {
        SCOPED_TRACE(after);
        auto mac = started(controlInMidBar({wifi}));
        apply(mac);
        mac.wait(after);
        mac.set("sleep", 3600);
        waitForApply(mac);
        mac.wait(10);
        expectNothingHeld(mac);
        EXPECT_EQ(mac.stats()["timers"], 0);
        if (!isCollapsed(mac)) {
            EXPECT_TRUE(showsPart(mac, "Couldn’t apply"));
            mac.press("Apply and Hide");
            waitForApply(mac);
        }
        EXPECT_TRUE(isCollapsed(mac));
    }
}

TEST(ClosedLid, endsAHideOnMacOS27AsTheUserWantedIt) {
    for (const double after : {0.05, 0.2, 0.4}) {
        SCOPED_TRACE(after);
        auto mac = started(trustedMac("macos-27-plain", setUp({"org.example.notes"})), 6);
        clickControl(mac);
        mac.wait(after);
        mac.set("sleep", 3600);
        mac.wait(10);
        expectNothingHeld(mac);
        const bool isHidden = isCollapsed(mac);
        EXPECT_TRUE(isHidden || showsPart(mac, "did not confirm the menu bar change in time"));
        EXPECT_EQ(storedText(mac, "Skerrow.shouldStartCollapsed"), isHidden ? "true" : "false");
        EXPECT_EQ(mac.stats()["flashes"], 0);
    }
}

} // namespace
} // namespace mac_model
