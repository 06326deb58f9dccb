#include "discovery/item_identifier.h"
#include "discovery/menu_bar_item_scan_policy.h"
#include "discovery/system_menu_extra_catalog.h"
#include "seam/system/text_icu.h"

#include <gtest/gtest.h>
#include <limits>

namespace tavrin {
namespace {

namespace Policy = MenuBarItemScanPolicy;
using Identifier = std::optional<std::string>;
using Identifiers = std::vector<Identifier>;

class ScanPolicyTest : public testing::Test {
  protected:
    const std::unique_ptr<Text> text_ = mac_model::makeIcuText();
};

TEST_F(ScanPolicyTest, canonicalIdentifierOfWhatAnElementSays) {
    struct Case {
        const char* bundle;
        Identifier raw;
        Identifier label;
        double width;
        Identifier expected;
    };

    const Case cases[]{
        {"com.apple.controlcenter", "com.apple.menuextra.WiFi", {}, 30, "com.apple.menuextra.wifi"},
        {"com.apple.controlcenter", " Wi-Fi ", {}, 30, "com.apple.menuextra.wifi"},
        {"com.apple.controlcenter", "Bätterý", {}, 30, "com.apple.menuextra.battery"},
        {"com.apple.controlcenter", "FocusMode", {}, 0, "com.apple.menuextra.focusmode"},
        {"com.apple.controlcenter", "com.sample.menu-item", "Clock", 30, "com.sample.menu-item"},
        // A text that is no identifier leaves the decision to the label.
        {"com.apple.controlcenter", "a.b", "Clock", 30, "com.apple.menuextra.clock"},
        {"com.apple.controlcenter", "a..b.c", {}, 30, {}},
        {"com.apple.controlcenter", "_NS:12", " Battery, 80 percent", 30, "com.apple.menuextra.battery"},
        {"com.apple.controlcenter", {}, "Battery, 80 percent", 0, {}},
        {"com.apple.controlcenter", {}, "Battery, 80 percent", std::numeric_limits<double>::quiet_NaN(), {}},
        {"com.apple.controlcenter", {}, "Akku", 30, {}},
        {"com.apple.Spotlight", "  ", {}, 0, "com.apple.menuextra.spotlight"},
        {"com.apple.campo", {}, " ", 0, "com.apple.menuextra.spotlight"},
        {"com.apple.Spotlight", {}, "Search", 30, {}},
        {"org.example.notes", " notes-item\n", "Notes", 30, "notes-item"},
        {"org.example.notes", "_NS:8", "Wi-Fi", 30, {}},
        {"org.example.notes", " ", "Wi-Fi", 30, {}},
        {"com.applesauce.app", "wifi", {}, 30, "wifi"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Policy::canonicalIdentifier(c.bundle, c.raw, c.label, c.width, *text_), c.expected)
            << c.bundle << ' ' << c.raw.value_or("-") << ' ' << c.label.value_or("-");
    }
}

TEST_F(ScanPolicyTest, itemIdentifiersTellTheItemsOfOneApplicationApart) {
    const auto identifiers = [&](const char* bundle, Identifiers canonical) {
        return Policy::itemIdentifiers(bundle, canonical, *text_);
    };
    using Strings = std::vector<std::string>;
    EXPECT_EQ(
        identifiers("com.apple.controlcenter", {"com.apple.menuextra.wifi", "com.apple.menuextra.sound"}),
        (Strings{"com.apple.controlcenter::identifier:com.apple.menuextra.wifi",
                 "com.apple.controlcenter::identifier:com.apple.menuextra.sound"}));
    EXPECT_EQ(identifiers("org.a", {{}}), Strings{"org.a"});
    EXPECT_EQ(identifiers("org.a", {" x "}), Strings{"org.a::identifier:x"});
    EXPECT_EQ(identifiers("org.a", {"_NS:3"}), Strings{"org.a"});
    EXPECT_EQ(identifiers("org.a", {"same", "same", "other"}),
              (Strings{"org.a::status-item:0", "org.a::status-item:1", "org.a::identifier:other"}));
    EXPECT_EQ(identifiers("org.a", {{}, {}}), (Strings{"org.a::status-item:0", "org.a::status-item:1"}));
}

TEST_F(ScanPolicyTest, itemNamesReadAsAPersonWouldSayThem) {
    const auto name = [&](const char* application, Identifier canonical, Identifier label, std::size_t index,
                          std::size_t count) {
        return Policy::itemName(application, canonical, label, index, count, *text_);
    };
    EXPECT_EQ(name("Control Center", "com.apple.menuextra.wifi", "WLAN", 0, 9), "Wi-Fi");
    EXPECT_EQ(name("Notes Agent", {}, " Sync ", 0, 1), "Sync");
    EXPECT_EQ(name("Notes Agent", {}, "NOTES AGENT", 0, 1), "Notes Agent");
    EXPECT_EQ(name("Notes Agent", {}, {}, 1, 2), "Notes Agent 2");
    EXPECT_EQ(name("Control Center", "com.apple.menuextra.screen-mirroring_x", {}, 0, 2),
              "Screen Mirroring X");
    EXPECT_EQ(name("メモ", {}, "メモ", 0, 1), "メモ");
}

TEST_F(ScanPolicyTest, fallbackIndexTrustsAnIndexOnlyOutsideApple) {
    const auto index = [&](const char* bundle, const Identifiers& present, Identifier requested, int at) {
        return Policy::fallbackItemIndex(bundle, present, requested, at, *text_);
    };
    const Identifiers present{"one", " TWO ", {}, "double", "double"};
    EXPECT_EQ(index("org.a", present, "two", 0), 1u);
    EXPECT_EQ(index("org.a", present, "double", 0), std::nullopt);
    EXPECT_EQ(index("org.a", present, "gone", 2), 2u);
    EXPECT_EQ(index("org.a", present, {}, 5), std::nullopt);
    EXPECT_EQ(index("org.a", present, {}, -1), std::nullopt);
    EXPECT_EQ(index("com.apple.a", present, "gone", 2), std::nullopt);
    EXPECT_EQ(index("com.apple.a", present, "ONE", 4), 0u);
}

TEST_F(ScanPolicyTest, framesAndZonesAtTheirEdges) {
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_TRUE(Policy::isValidFrame({-3000, 0, 999.9, 99.9}));
    for (const Rect& bad : {Rect{0, 0, 0, 20}, Rect{0, 0, 20, 0}, Rect{0, 0, 1000, 20}, Rect{0, 0, 20, 100},
                            Rect{infinite, 0, 20, 20}, Rect{0, 0, std::nan(""), 20}}) {
        EXPECT_FALSE(Policy::isValidFrame(bad));
    }
    EXPECT_EQ(Policy::zone({90, 0, 20, 20}, 100), MenuBarZone::visible);
    EXPECT_EQ(Policy::zone({89, 0, 20, 20}, 100), MenuBarZone::hidden);
    EXPECT_FALSE(Policy::isMovable("com.apple.menuextra.clock"));
    EXPECT_TRUE(Policy::isMovable(std::nullopt));
}

TEST_F(ScanPolicyTest, orderIsByZoneThenApplicationThenPlace) {
    const auto item = [](const char* id, const char* application, MenuBarZone zone, double x) {
        MenuBarItemSnapshot snapshot;
        snapshot.id = id;
        snapshot.applicationName = application;
        snapshot.zone = zone;
        snapshot.frame = {x, 0, 20, 20};
        return snapshot;
    };
    using enum MenuBarZone;
    std::vector items{item("h", "Alpha", hidden, 1),   item("z2", "zeta", visible, 50),
                      item("A1", "Echo", visible, 90), item("b", "echo", visible, 10),
                      item("A2", "Echo", visible, 20), item("e", "École", visible, 5),
                      item("z1", "zeta", visible, 40)};
    Policy::sort(items, *text_);
    std::vector<std::string> ids;
    for (const auto& sorted : items) ids.push_back(sorted.id);
    // "Echo" and "echo" keep the places of the scan between them, while Echo's own two items go by x.
    EXPECT_EQ(ids, (std::vector<std::string>{"A2", "b", "A1", "e", "z1", "z2", "h"}));
}

TEST(ItemIdentifierTest, comparesTheBundleWithoutCase) {
    EXPECT_EQ(comparableItemIdentifier("Org.Example.A::identifier:Xy"), "org.example.a::identifier:Xy");
    EXPECT_EQ(comparableItemIdentifier("Org.A"), "org.a");
    EXPECT_EQ(comparableItemIdentifier("com.apple.ControlCenter::identifier:Com.Apple.X"),
              "com.apple.controlcenter::identifier:com.apple.x");
}

TEST(SystemMenuExtraCatalogTest, matchesExtrasToFramesOnlyWhenCertain) {
    namespace Catalog = SystemMenuExtraCatalog;
    const auto frame = [](double x) { return Rect{x, 0, 20, 20}; };
    const std::vector<SystemMenuExtraDescriptor> three{{"ten", 10}, {"far", 250}, {"mid", 120}};
    const std::vector<Rect> frames{frame(900), frame(1000), frame(1100)};
    EXPECT_EQ(Catalog::matchCanonicalIdentifiers(three, frames), (Identifiers{"far", "mid", "ten"}));

    const auto unplaced = std::vector<SystemMenuExtraDescriptor>{{"ten", 10}, {"far", {}}, {"mid", 120}};
    EXPECT_EQ(Catalog::matchCanonicalIdentifiers(unplaced, frames), Identifiers(3));
    EXPECT_EQ(Catalog::matchCanonicalIdentifiers(std::span(three).first(2), frames), Identifiers(3));
    EXPECT_EQ(Catalog::matchCanonicalIdentifiers({}, {}), Identifiers{});
    const std::vector<SystemMenuExtraDescriptor> one{{"only", {}}};
    EXPECT_EQ(Catalog::matchCanonicalIdentifiers(one, std::span(frames).first(1)), Identifiers{"only"});
}

TEST(SystemMenuExtraCatalogTest, whatIsNoNumberIsNeverPutInOrder) {
    namespace Catalog = SystemMenuExtraCatalog;
    for (const double wrong :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        const std::vector<SystemMenuExtraDescriptor> two{{"ten", 10}, {"far", 250}};
        const std::vector<Rect> frames{{900, 0, 20, 20}, {wrong, 0, 20, 20}};
        EXPECT_EQ(Catalog::matchCanonicalIdentifiers(two, frames), Identifiers(2));
        const std::vector<SystemMenuExtraDescriptor> unplaced{{"ten", 10}, {"far", wrong}};
        EXPECT_EQ(Catalog::matchCanonicalIdentifiers(unplaced, std::vector<Rect>(2, frames[0])),
                  Identifiers(2));
    }
}

} // namespace
} // namespace tavrin
