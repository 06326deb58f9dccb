#include "discovery/accessibility_menu_bar_scanner.h"
#include "discovery/item_inventory.h"
#include "support/fake_accessibility.h"
#include "support/mac_fixture.h"

namespace tavrin {
namespace {

/// The items of one application, 501, whose place the test decides.
class ItemInventoryTest : public mac_model::MacTest {
  protected:
    ItemInventoryTest() {
        auto desktop = mac_model::plainDesktop();
        desktop.applications.push_back(mac_model::applicationSpec("org.example.p501", 501));
        bootAndStart(std::move(desktop));
        accessibility.nodes[501].attributes["AXExtrasMenuBar"] = FakeAccessibility::element(5501);
        accessibility.nodes[5501].attributes["AXRole"] = "AXMenuBar";
        accessibility.setChildren(5501, {10'501});
        accessibility.nodes[10'501].attributes["AXRole"] = "AXMenuBarItem";
        accessibility.nodes[10'501].attributes["AXPosition"] = Point{700, 3};
        accessibility.nodes[10'501].attributes["AXSize"] = Size{28, 24};
        const auto& p = platform();
        ours.emplace(Platform{p.scheduler, p.application, accessibility, p.defaults, p.eventMonitors,
                              p.events, p.hotKeys, p.keyboard, p.loginItem, p.presentation, p.randomness,
                              p.screens, p.statusItems, p.text, p.visibilityService, p.windowServer,
                              p.workspace});
        permission.emplace(scheduler, accessibility, p.application);
        auto applications = std::make_unique<AccessibilityMenuBarScanner>(scheduler, accessibility,
                                                                          p.defaults, p.workspace, p.text);
        inventory.emplace(*ours, *permission, std::move(applications), [this] { return boundaryX; });
        scans = inventory->onScanCompleted([this](const ScanResult& scan) { results.push_back(scan); });
        changes = inventory->items().subscribe([this](const auto&) { ++changeCount; });
    }

    static Task<> refresh(ItemInventory* inventory) { co_await inventory->refreshItemsNow(); }

    void scan() {
        auto job = start(scheduler, refresh(&*inventory));
        scheduler.advance(Seconds{1});
        EXPECT_FALSE(job.isRunning());
        EXPECT_FALSE(inventory->isScanning().get());
    }

    FakeAccessibility accessibility;
    std::optional<Platform> ours;
    std::optional<AccessibilityPermission> permission;
    std::optional<ItemInventory> inventory;
    double boundaryX = 600;
    std::vector<ScanResult> results;
    int changeCount = 0;
    Subscription scans;
    Subscription changes;
};

TEST_F(ItemInventoryTest, everyScanIsToldAlsoWhenNothingHasChanged) {
    scan();
    scan();
    ASSERT_EQ(results.size(), 2u);
    EXPECT_EQ(changeCount, 1);
    for (const auto& result : results) {
        EXPECT_FALSE(result.isDenied);
        ASSERT_EQ(result.items.size(), 1u);
        EXPECT_EQ(result.items.front().zone, MenuBarZone::visible);
    }
    boundaryX = 800;
    scan();
    EXPECT_EQ(inventory->items().get().front().snapshot.zone, MenuBarZone::hidden);
    EXPECT_EQ(changeCount, 2);
}

TEST_F(ItemInventoryTest, aDeniedScanKnowsNothing) {
    scan();
    accessibility.trusted = false;
    scan();
    ASSERT_EQ(results.size(), 2u);
    EXPECT_TRUE(results.back().isDenied);
    EXPECT_TRUE(inventory->items().get().empty());
    EXPECT_FALSE(inventory->hasCompletedScan());
}

TEST_F(ItemInventoryTest, aScanThatMacOSRefusesLeavesTheListAsItWas) {
    scan();
    ASSERT_TRUE(inventory->hasCompletedScan());
    for (const auto error : {AccessibilityError::ApiDisabled, AccessibilityError::CannotComplete}) {
        accessibility.nodes[501].error = error;
        scan();
        EXPECT_TRUE(results.back().isDenied);
        EXPECT_FALSE(inventory->hasCompletedScan()) << "whatever the trust flag says";
        EXPECT_EQ(inventory->items().get().size(), 1u);
    }
    accessibility.nodes[501].error.reset();
    scan();
    EXPECT_TRUE(inventory->hasCompletedScan());
}

TEST_F(ItemInventoryTest, oneApplicationThatFailsIsNoRefusal) {
    (void)mac->processes().launch(mac_model::applicationSpec("org.example.p600", 600));
    settle();
    for (const auto error : {AccessibilityError::ApiDisabled, AccessibilityError::CannotComplete}) {
        accessibility.nodes[600].error = error;
        scan();
        EXPECT_TRUE(inventory->hasCompletedScan());
        EXPECT_EQ(inventory->items().get().size(), 1u);
    }
}

TEST_F(ItemInventoryTest, accessThatIsLostInMidScanIsARefusal) {
    (void)mac->processes().launch(mac_model::applicationSpec("org.example.p600", 600));
    settle();
    accessibility.nodes[600].error = AccessibilityError::ApiDisabled;
    accessibility.beforeMessage = [&](int number) {
        if (number == 600) accessibility.nodes[501].error = AccessibilityError::ApiDisabled;
    };
    scan();
    EXPECT_TRUE(results.back().isDenied) << "the first application has answered, but does no longer";
}

TEST_F(ItemInventoryTest, lostTrustMakesTheListVoidWithoutAScan) {
    scan();
    EXPECT_TRUE(inventory->hasCompletedScan());
    accessibility.trusted = false;
    permission->refresh();
    EXPECT_FALSE(inventory->hasCompletedScan());
    EXPECT_TRUE(inventory->items().get().empty());
    EXPECT_EQ(results.size(), 1u);
}

} // namespace
} // namespace tavrin
