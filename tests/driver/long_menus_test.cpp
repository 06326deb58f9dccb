#include "support/tavrin_mac.h"

#include <gtest/gtest.h>

namespace mac_model {
namespace {

/// A low screen whose bar has an item with forty entries, of which the second last has forty more.
json desktopWithLongMenu() {
    const auto entries = [](const std::string& name) {
        json list = json::array();
        for (int i = 1; i <= 40; ++i) list.push_back({{"title", name + " " + std::to_string(i)}});
        return list;
    };
    auto menu = entries("Entry");
    menu[38]["items"] = entries("Deep");
    return {{"macOS", {{"major", 26}}},
            {"screens", {{{"frame", {0, 0, 900, 400}}}}},
            {"applications",
             {{{"bundleIdentifier", "org.long"},
               {"name", "Long"},
               {"processIdentifier", 501},
               {"policy", "accessory"},
               {"statusItems",
                {{{"description", "Long"}, {"width", 40}, {"opens", "menu"}, {"menu", std::move(menu)}}}}}}}};
}

class LongMenus : public testing::Test {
  protected:
    LongMenus() { mac_.clickItem("org.long"); }

    std::vector<json> menus() { return mac_.surfacesOf("org.long"); }

    json menu() { return menus().at(0); }

    std::string highlighted() {
        for (const auto& row : menus().back()["children"])
            if (row.value("highlighted", false)) return row["text"];
        return "none";
    }

    bool isShown(const std::string& text) {
        const auto shown = menus().back()["shownRows"];
        const auto frame = mac_.find(text).at(0)["frame"];
        return frame[1] >= shown[1] && frame[1].get<double>() + frame[3].get<double>() <=
                                           shown[1].get<double>() + shown[3].get<double>();
    }

    void moveTo(double dx, double dyFromBottom) {
        const auto frame = menu()["frame"];
        mac_.done({{"do", "move"},
                   {"at",
                    {frame[0].get<double>() + dx,
                     frame[1].get<double>() + frame[3].get<double>() - dyFromBottom}}});
    }

    json scroll(double dy) { return mac_.done({{"do", "scroll"}, {"dy", dy}})["handled"]; }

    std::string chosen() {
        const auto all = mac_.events()["chosen"];
        return all.empty() ? "none" : all.back()["path"].back().get<std::string>();
    }

    TavrinMac mac_{{.desktopJson = desktopWithLongMenu().dump()}};
};

TEST_F(LongMenus, endWhereTheScreenEnds) {
    for (const bool isDeep : {false, true}) {
        if (isDeep) mac_.done({{"do", "click"}, {"text", "Entry 39"}});
        ASSERT_EQ(menus().size(), isDeep ? 2U : 1U);
        const auto frame = menus().back()["frame"];
        EXPECT_GE(frame[1].get<double>(), mac_.look()["screens"][0]["menuBarHeight"].get<double>());
        EXPECT_LT(frame[1].get<double>() + frame[3].get<double>(), 400);
        EXPECT_GT(menus().back()["scrollMax"].get<double>(), 0);
    }
    EXPECT_TRUE(isShown("Deep 1"));
}

TEST_F(LongMenus, moveOnWhileThePointerRestsOnAnArrow) {
    EXPECT_EQ(menu()["value"], 0);
    moveTo(20, 30);
    const auto before = highlighted();
    ASSERT_NE(before, "none");
    moveTo(20, 8); // the lower arrow
    mac_.wait(0.3);
    const double value = menu()["value"];
    EXPECT_GT(value, 22);
    EXPECT_LT(value, menu()["scrollMax"].get<double>());
    EXPECT_EQ(highlighted(), "none") << "nothing behind an arrow can be pressed";
    mac_.done({{"do", "click"}, {"at", mac_.look()["pointer"]["at"]}});
    EXPECT_EQ(menus().size(), 1U) << "a press on an arrow chooses nothing";
    mac_.wait(30);
    EXPECT_EQ(menu()["value"], menu()["scrollMax"]);
    EXPECT_EQ(highlighted(), "Entry 40") << "the arrow has gone, and the last row has come under the pointer";

    moveTo(20, menu()["frame"][3].get<double>() - 5); // the upper arrow
    mac_.wait(30);
    EXPECT_EQ(menu()["value"], 0);
    EXPECT_EQ(chosen(), "none");
}

TEST_F(LongMenus, followTheWheelAndTheKeys) {
    EXPECT_EQ(scroll(-44), false) << "the pointer isn't over the menu";
    moveTo(20, 100);
    const auto before = highlighted();
    EXPECT_EQ(scroll(-44), true);
    EXPECT_EQ(menu()["value"], 44);
    EXPECT_NE(highlighted(), before) << "what is under the pointer now";
    EXPECT_EQ(scroll(5000), true);
    EXPECT_EQ(scroll(5), false) << "it goes no further";

    struct Case {
        const char* key;
        const char* expected;
    };

    for (const auto& [key, expected] : {Case{"end", "Entry 40"}, Case{"up", "Entry 39"},
                                        Case{"home", "Entry 1"}, Case{"down", "Entry 2"}}) {
        mac_.key(key);
        EXPECT_EQ(highlighted(), expected);
        EXPECT_TRUE(isShown(expected)) << expected;
    }
    mac_.key("pageDown");
    EXPECT_TRUE(isShown(highlighted()));
    EXPECT_EQ(highlighted(), "Entry 16");
    mac_.key("pageUp");
    EXPECT_EQ(highlighted(), "Entry 2");
    mac_.key("end");
    mac_.key("up");
    mac_.key("right");
    EXPECT_EQ(highlighted(), "Deep 1");
    mac_.key("end");
    mac_.key("return");
    EXPECT_EQ(chosen(), "Deep 40");
}

TEST_F(LongMenus, giveAPersonEachOfTheirEntries) {
    EXPECT_FALSE(isShown("Entry 40"));
    mac_.press("Entry 40");
    EXPECT_EQ(chosen(), "Entry 40");
    mac_.done({{"do", "menu"}, {"path", {"Long", "Entry 39", "Deep 33"}}});
    EXPECT_EQ(chosen(), "Deep 33");
    EXPECT_TRUE(menus().empty());
}

} // namespace
} // namespace mac_model
