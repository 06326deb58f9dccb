#include "driver/probe_program.h"
#include "platform/events.h"
#include "platform/workspace.h"
#include "support/tavrin_mac.h"
#include "views/view_builders.h"

#include <gtest/gtest.h>

namespace mac_model {
namespace {

using tavrin::PopoverBehavior;
using Log = std::vector<std::string>;

class Surfaces : public ::testing::Test {
  protected:
    Surfaces()
        : mac({.program = [this](tavrin::Platform& platform) {
            return std::make_unique<ProbeDelegate>(probe, platform);
        }}) {
        mac.settle();
    }

    void showPopover(PopoverBehavior behavior) {
        probe.popover = probe.platform->presentation.makePopover(behavior, probe.logs("popover closed"));
        probe.popover->setContent(tavrin::column(
            {tavrin::text("Hello"), tavrin::button("Do It", probe.logs("did it"))}, {.padding = 10}));
        ASSERT_TRUE(probe.popover->show(*probe.item, *probe.item->frame()));
    }

    void openWindow() {
        probe.window = probe.platform->presentation.makeWindow("Probe Window", probe.logs("window closed"));
        auto done = tavrin::button("Done", probe.logs("done"), {.isDefault = true});
        probe.window->setContent(tavrin::column({tavrin::text("Words"), std::move(done)}, {.padding = 20}));
        probe.window->makeKeyAndOrderFront();
        probe.platform->application.activateIgnoringOthers();
        mac.settle();
    }

    void showAlert(std::optional<tavrin::IconOfApplication> icon = std::nullopt) {
        probe.platform->application.activateIgnoringOthers();
        probe.alert = probe.platform->presentation.showAlert(
            {.messageText = "Really?", .informativeText = "Why.", .buttons = {"Yes", "Cancel"}, .icon = icon},
            [this](std::size_t button) {
                probe.alert.reset();
                probe.log.push_back("answer " + std::to_string(button));
            });
        mac.settle();
    }

    void popUpMenu() {
        tavrin::Menu menu;
        menu.items = {{"First", "f", true, true, false, {}, probe.logs("first")},
                      tavrin::MenuItem::separator(),
                      {"Second", "", false, false, false, {}, probe.logs("second")},
                      {"Third", "t", true, false, false, {}, probe.logs("third")}};
        probe.platform->presentation.popUp(std::move(menu), *probe.item, *probe.item->frame());
    }

    Log takeLog() { return std::exchange(probe.log, {}); }

    Probe probe;
    TavrinMac mac;
};

} // namespace

TEST_F(Surfaces, popoverClosesBeforeThePressOutsideActs) {
    showPopover(PopoverBehavior::Transient);
    const auto popover = mac.surfacesOf(tavrinBundle).at(0);
    const auto item = mac.itemsOf(tavrinBundle).at(0)["frame"];
    EXPECT_EQ(popover["kind"], "popover");
    EXPECT_GE(popover["frame"][1].get<double>(), item[1].get<double>() + item[3].get<double>());

    mac.press("Do It");
    EXPECT_EQ(takeLog(), Log{"did it"});
    EXPECT_TRUE(probe.popover->isShown());

    mac.clickItem(tavrinBundle);
    EXPECT_EQ(takeLog(), (Log{"popover closed", "left"}));
    EXPECT_FALSE(probe.popover->isShown());

    showPopover(PopoverBehavior::ApplicationDefined);
    mac.done({{"do", "click"}, {"at", {300, 600}}});
    EXPECT_EQ(takeLog(), Log{});
    mac.rightClickItem(tavrinBundle);
    EXPECT_EQ(takeLog(), Log{"right"});
    probe.popover->close();
    mac.settle();
    EXPECT_EQ(takeLog(), Log{"popover closed"});
}

TEST_F(Surfaces, popoverStaysOnTheScreenAndWithItsItem) {
    showPopover(PopoverBehavior::Transient);
    const auto before = mac.surfacesOf(tavrinBundle).at(0);
    probe.popover->setContent(tavrin::row({tavrin::text("x")}, {.width = 1000}));
    const auto wide = mac.surfacesOf(tavrinBundle).at(0)["frame"];
    EXPECT_LT(wide[0], before["frame"][0]);
    EXPECT_LE(wide[0].get<double>() + wide[2].get<double>(),
              mac.look()["screens"][0]["frame"][2].get<double>());
    EXPECT_GE(wide[0], 0);
    probe.popover->setContent(tavrin::text("Hello"));
    mac.set("quit", "com.sample.weather"); // an item on the right goes away, and the run moves over
    mac.settle();
    EXPECT_GT(mac.surfacesOf(tavrinBundle).at(0)["arrowX"], before["arrowX"]);
    probe.item.reset();
    mac.settle();
    EXPECT_EQ(takeLog(), Log{"popover closed"});
}

TEST_F(Surfaces, popoverStaysWhereItIsWhileOnlyTheProgramMayCloseIt) {
    showPopover(PopoverBehavior::ApplicationDefined);
    const auto before = mac.surfacesOf(tavrinBundle).at(0);
    mac.set("quit", "com.sample.weather");
    mac.settle();
    EXPECT_EQ(mac.surfacesOf(tavrinBundle).at(0)["frame"], before["frame"]);
    probe.popover->setContent(tavrin::text("Hello"));
    EXPECT_EQ(mac.surfacesOf(tavrinBundle).at(0)["arrowX"], before["arrowX"]);
    probe.popover->setBehavior(PopoverBehavior::Transient);
    EXPECT_GT(mac.surfacesOf(tavrinBundle).at(0)["arrowX"], before["arrowX"]);
    auto screens = json::array({{{"frame", {0, 0, 300, 400}}}});
    probe.popover->setBehavior(PopoverBehavior::ApplicationDefined);
    mac.set("screens", screens);
    mac.settle();
    EXPECT_LE(mac.surfacesOf(tavrinBundle).at(0)["frame"][0], 300) << "it is nowhere left behind";
}

TEST_F(Surfaces, nothingReachesAProgramThatIsGone) {
    openWindow();
    showPopover(PopoverBehavior::Transient);
    mac.crash();
    mac.settle();
    EXPECT_TRUE(mac.surfacesOf(tavrinBundle).empty());
    EXPECT_EQ(takeLog(), Log{});

    mac.start();
    mac.settle();
    showPopover(PopoverBehavior::Transient);
    probe.popover.reset(); // closes without telling
    EXPECT_TRUE(mac.surfacesOf(tavrinBundle).empty());
    mac.settle();
    EXPECT_EQ(takeLog(), Log{});
}

TEST_F(Surfaces, windowTakesKeysAndCloses) {
    openWindow();
    const auto window = mac.surfacesOf(tavrinBundle).at(0);
    EXPECT_TRUE(window["key"]);
    EXPECT_EQ(window["title"], "Probe Window");
    mac.key("return");
    EXPECT_EQ(takeLog(), Log{"done"});
    mac.start();
    EXPECT_EQ(takeLog(), Log{"reopened with windows"});
    mac.done({{"do", "click"}, {"at", {20, 700}}}); // another application is active then
    EXPECT_FALSE(mac.surfacesOf(tavrinBundle).at(0)["key"]);
    mac.key("return");
    EXPECT_EQ(takeLog(), Log{});

    const double x = window["frame"][0];
    const double y = window["frame"][1];
    mac.done({{"do", "drag"}, {"from", {x + 60, y + 10}}, {"to", {x + 160, y + 60}}});
    EXPECT_EQ(mac.surfacesOf(tavrinBundle).at(0)["frame"][0], x + 100);
    // Let go beside the control that was pressed: nothing happens.
    const auto done = mac.find("Done").at(0)["frame"];
    const json from{done[0].get<double>() + 5, done[1].get<double>() + 5};
    mac.done({{"do", "drag"}, {"from", from}, {"to", {x + 500, y + 400}}});
    EXPECT_EQ(takeLog(), Log{});

    mac.press("close button");
    EXPECT_EQ(takeLog(), (Log{"window closed", "last window closed"}));
    openWindow();
    mac.done({{"do", "key"}, {"key", "w"}, {"modifiers", {"command"}}});
    EXPECT_EQ(takeLog(), (Log{"window closed", "last window closed"}));
}

TEST_F(Surfaces, alertKeepsPressesFromItsApplicationOnly) {
    openWindow();
    showPopover(PopoverBehavior::ApplicationDefined);
    const auto done = mac.find("Done").at(0)["frame"];
    const auto doIt = mac.find("Do It").at(0)["frame"];
    const auto click = [this](const json& frame) {
        mac.done({{"do", "click"}, {"at", {frame[0].get<double>() + 5, frame[1].get<double>() + 5}}});
        mac.settle();
    };
    const auto title = mac.surfacesOf(tavrinBundle).at(0)["frame"];
    showAlert();
    // Beside the alert, which stands in the middle.
    mac.modelled().content().stack.moveBy(*mac.modelled().content().stack.key(), -500, 200);
    click(done);
    click(doIt);
    mac.clickItem(tavrinBundle);
    mac.rightClickItem(tavrinBundle);
    mac.done({{"do", "drag"},
              {"from", {title[0].get<double>() + 90, title[1].get<double>() + 10}},
              {"to", {title[0].get<double>() + 190, title[1].get<double>() + 10}}});
    EXPECT_EQ(takeLog(), Log{});
    EXPECT_EQ(mac.surfacesOf(tavrinBundle).at(0)["frame"], title);
    EXPECT_EQ(mac.surfacesOf(tavrinBundle).at(0)["waits"], true);
    EXPECT_NE(mac.refused({{"do", "press"}, {"text", "Done"}}).find("nothing"), std::string::npos);

    mac.clickItem("org.example.notes"); // another application's
    EXPECT_TRUE(mac.shows("Sync Now"));
    mac.key("escape");
    mac.done({{"do", "click"}, {"at", {20, 700}}});
    EXPECT_EQ(mac.look()["frontmost"], "com.apple.finder");
    click(done); // brings the alert forward
    EXPECT_EQ(mac.look()["frontmost"], tavrinBundle);
    mac.key("return");
    EXPECT_EQ(takeLog(), Log{"answer 0"});

    click(done);
    click(doIt);
    mac.clickItem(tavrinBundle);
    EXPECT_EQ(takeLog(), (Log{"done", "did it", "left"}));
}

TEST_F(Surfaces, alertShowsTheIconOfAnApplicationThatIsInstalled) {
    const auto icon = [this] {
        for (const auto& node : mac.surfacesOf(tavrinBundle).at(0)["children"][0]["children"])
            if (node.contains("icon")) return node["icon"].get<std::string>();
        return std::string("none");
    };
    mac.set("quit", "org.example.notes");
    for (const auto& [bundle, expected] :
         {std::pair{"com.apple.finder", "com.apple.finder"},
          std::pair{"org.example.notes", "org.example.notes"}, std::pair{"org.example.never", tavrinBundle},
          std::pair{"", tavrinBundle}}) {
        showAlert(tavrin::IconOfApplication{bundle});
        EXPECT_EQ(icon(), expected);
        mac.key("escape");
        EXPECT_EQ(takeLog(), Log{"answer 1"});
    }
}

TEST_F(Surfaces, menuOfTheProgramTracksUntilChosen) {
    popUpMenu();
    EXPECT_TRUE(mac.find("First").at(0)["checked"]);
    EXPECT_NE(mac.refused({{"do", "press"}, {"text", "Second"}}).find("disabled"), std::string::npos);
    mac.press("Third");
    EXPECT_EQ(takeLog(), Log{"third"});
    EXPECT_TRUE(mac.surfacesOf(tavrinBundle).empty());

    popUpMenu();
    mac.clickItem(tavrinBundle); // only closes the menu
    EXPECT_EQ(takeLog(), Log{});
    EXPECT_FALSE(mac.shows("First"));

    for (const auto& keys : {Log{"escape"}, Log{"down", "down", "return"}, Log{"f"}}) {
        popUpMenu();
        for (const auto& key : keys)
            mac.done(
                {{"do", "key"}, {"key", key}, {"modifiers", key == "f" ? json{"command"} : json::array()}});
    }
    EXPECT_EQ(takeLog(), (Log{"third", "first"}));
}

TEST_F(Surfaces, menusBeginWhereTheMenuBarEnds) {
    const auto topOfMenu = [&](const char* owner) {
        const auto top = mac.surfacesOf(owner).at(0)["frame"][1];
        mac.done({{"do", "key"}, {"key", "escape"}});
        return top.get<double>();
    };
    const double barHeight = mac.look()["screens"][0]["menuBarHeight"];
    ASSERT_LT(probe.item->frame()->maxY(), barHeight) << "an item is lower than the bar";
    popUpMenu();
    EXPECT_EQ(topOfMenu(tavrinBundle), barHeight);
    mac.done({{"do", "perform"}, {"menuTitle", 2}});
    EXPECT_EQ(topOfMenu("com.apple.finder"), barHeight);
}

TEST_F(Surfaces, buttonsOfAnAlertAreOfOneSize) {
    const auto alert = probe.platform->presentation.showAlert({.messageText = "Sure?",
                                                               .informativeText = "Really?",
                                                               .buttons = {"Do What Was Said", "No"},
                                                               .icon = std::nullopt},
                                                              [](std::size_t) {});
    const auto yes = mac.find("Do What Was Said").at(0)["frame"];
    const auto no = mac.find("No").at(0)["frame"];
    EXPECT_EQ((json{yes[0], yes[2], yes[3]}), (json{no[0], no[2], no[3]}));
}

TEST_F(Surfaces, otherApplicationsOpenTheirMenus) {
    mac.done({{"do", "menu"}, {"path", {"Finder", "About Finder"}}});
    mac.done({{"do", "menu"}, {"path", {"View", "Sort By", "Kind"}}});
    mac.done({{"do", "menu"}, {"path", {"Notes Agent", "Sync Now"}}});
    const auto chosen = mac.events()["chosen"];
    ASSERT_EQ(chosen.size(), 3U);
    EXPECT_EQ(chosen[1]["path"], (json{"Sort By", "Kind"}));
    EXPECT_EQ(chosen[2]["owner"], "org.example.notes");
    EXPECT_TRUE(mac.events()["chosen"].empty());

    mac.clickItem("org.example.notes");
    EXPECT_TRUE(mac.itemsOf("org.example.notes").at(0)["open"]);
    mac.clickItem("com.apple.controlcenter"); // on to the next item, which closes the menu
    EXPECT_FALSE(mac.shows("Sync Now"));
    EXPECT_EQ(mac.surfacesOf("com.apple.controlcenter").size(), 1U);
    mac.clickItem("com.apple.controlcenter");
    EXPECT_TRUE(mac.surfacesOf("com.apple.controlcenter").empty());

    mac.set("hang", "org.example.notes");
    EXPECT_NE(mac.refused({{"do", "menu"}, {"path", {"Notes Agent", "Sync Now"}}}).find("no menu"),
              std::string::npos);
    mac.set("quit", "com.apple.finder");
    EXPECT_NE(mac.look()["menus"][1]["title"], "Finder");
}

TEST_F(Surfaces, systemSettingsGrantAndRevoke) {
    auto& workspace = probe.platform->workspace;
    EXPECT_FALSE(workspace.openUrl("https://example.org"));
    EXPECT_TRUE(
        workspace.openUrl("x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility"));
    mac.settle();
    EXPECT_EQ(mac.look()["frontmost"], "com.apple.systempreferences");
    EXPECT_FALSE(mac.shows("Tavrin")) << "it hasn't asked yet";
    probe.platform->accessibility.requestTrust();
    mac.settle();
    EXPECT_TRUE(mac.shows("“Tavrin” would like to control this computer using accessibility features."));
    mac.press("Deny");
    for (const bool expected : {true, false, true}) {
        mac.press("Tavrin");
        mac.settle();
        EXPECT_EQ(probe.platform->accessibility.isTrusted(), expected);
        EXPECT_EQ(mac.look()["world"]["trusted"], expected);
    }
    mac.press("close button");
    EXPECT_TRUE(mac.surfacesOf("com.apple.systempreferences").empty());
    EXPECT_TRUE(mac.mac().processes().withBundle("com.apple.systempreferences").empty());
}

TEST_F(Surfaces, pointerAndCursor) {
    mac.done({{"do", "move"}, {"at", {20, 500}}});
    EXPECT_EQ(probe.platform->events.pointerLocation(), (tavrin::Point{20, 500}));
    auto& cursor = mac.modelled().content().cursor;
    cursor.hide(tavrin::Seconds{1});
    cursor.hide(tavrin::Seconds{1});
    cursor.show(tavrin::Seconds{2});
    EXPECT_TRUE(mac.look()["pointer"]["visible"]) << "a process in the background can't hide it";
    cursor.setOwnerActive(true);
    EXPECT_FALSE(mac.look()["pointer"]["visible"]);
    cursor.setOwnerActive(false);
    EXPECT_TRUE(mac.look()["pointer"]["visible"]);
    EXPECT_EQ(mac.events()["events"].size(), 3U);
}

} // namespace mac_model
