#include "scenarios/pin_acts.h"

#include <functional>

namespace mac_model {
namespace {

struct FailingRun {
    std::string what;
    json stored;
    std::string message;
    std::function<void(TavrinMac&)> prepare = nullptr;
    std::vector<json> applications{notesApplication()};
};

std::vector<FailingRun> failingRuns() {
    const auto is = [](const json& faults) {
        return [faults](TavrinMac& mac) { mac.set("menus", {{notesBundle, faults}}); };
    };
    json many = json::array();
    for (int i = 0; i < 700; ++i) many.push_back(entry("Entry " + std::to_string(i)));
    json deep = entry("Level 9");
    for (int level = 8; level > 0; --level)
        deep = entry("Level " + std::to_string(level), {{"items", json::array({deep})}});
    const Strings deepPath{"Level 1", "Level 2", "Level 3", "Level 4"};
    const json noReference{{"statusItem", {{"identifier", "other"}, {"index", 0}}}};
    return {
        {"not running", pin("P", {"X"}), "Notes isn't running. Open it and try again.", nullptr, {}},
        {"no item",
         pin("P", {"X"}),
         "Notes is running but its menu bar item couldn't be found.",
         nullptr,
         {application(notesBundle, "Notes", "regular")}},
        {"two items",
         pin("P", {"X"}, noReference),
         "Notes is running but its menu bar item couldn't be found.",
         nullptr,
         {application(notesBundle, "Notes", "accessory",
                      {{"statusItems",
                        {statusItem(notesMenu()), statusItem(notesMenu(), {{"autosaveName", "b"}})}}})}},
        {"a panel",
         pin("P", {"X"}),
         "Notes's menu didn't open. It may show a panel instead of a menu.",
         nullptr,
         {application(
             notesBundle, "Notes", "accessory",
             {{"statusItems",
               json::array({{{"identifier", "notes-item"}, {"width", 28}, {"opens", "popover"}}})}})}},
        {"disabled item",
         pin("P", {"X"}),
         "Notes's menu didn't open. It may show a panel instead of a menu.",
         nullptr,
         {notesApplication(statusItem(notesMenu(), {{"enabled", false}}))}},
        {"renamed", pin("P", {"Sync all"}),
         "This item changed: \"Sync all\" is no longer in the menu. Current choices: Sync Now, Dark Mode, "
         "Later, Twin, twin…, Accounts."},
        {"renamed below", pin("P", {"Accounts", "Gone"}),
         "This item changed: \"Gone\" is no longer in the menu. Current choices: Work, Home."},
        {"no submenu any more", pin("P", {"Sync Now", "Gone"}),
         "This item changed: \"Gone\" is no longer in the menu."},
        {"empty title", pin("P", {"…"}, {{"path", json::array({{{"title", " "}}})}}),
         "This item changed: \" \" is no longer in the menu. Current choices: Sync Now, Dark Mode, Later, "
         "Twin, twin…, Accounts."},
        {"empty path", pin("P", {}),
         "This item changed: \"P\" is no longer in the menu. Current choices: Sync Now, Dark Mode, Later, "
         "Twin, twin…, Accounts."},
        {"beyond 600",
         pin("P", {"Entry 650"}),
         "This item changed: \"Entry 650\" is no longer in the menu. Current choices: Entry 0, Entry 1, "
         "Entry "
         "2, Entry 3, Entry 4, Entry 5.",
         nullptr,
         {notesApplication(statusItem(many))}},
        {"too deep",
         pin("P", deepPath),
         "This item changed: \"Level 4\" is no longer in the menu.",
         nullptr,
         {notesApplication(statusItem(json::array({deep})))}},
        {"twins", pin("P", {"Twin"}), "2 items are called \"Twin\", so Tavrin won't guess."},
        {"ticked", pin("P", {"dark mode"}),
         "\"Dark Mode\" can't run: switches, checkboxes and sliders can't be pinned."},
        {"disabled", pin("P", {"Later"}), "\"Later\" can't run: disabled right now."},
        {"titles that show nothing",
         pin("P", {"Gone"}),
         "This item changed: \"Gone\" is no longer in the menu. Current choices: Here.",
         nullptr,
         {notesApplication(statusItem({entry("\u00A0"), entry("Here"), entry("\u2003\u00A0")}))}},
        {"a slider",
         pin("P", {"Volume"}),
         "\"Volume\" can't run: switches, checkboxes and sliders can't be pinned.",
         nullptr,
         {notesApplication(statusItem(json::array({entry("Volume", {{"role", "AXSlider"}})})))}},
        {"refused", pin("P", {"Sync Now"}), "\"Sync Now\" didn't respond to the press.",
         is({{"refusesChoices", true}})},
        {"hung", pin("P", {"Sync Now"}), "Notes isn't responding.",
         [](TavrinMac& mac) { mac.set("hang", notesBundle); }},
        {"slower than the time-out", pin("P", {"Sync Now"}), "Notes isn't responding.",
         [](TavrinMac& mac) { mac.set("latency", {{notesBundle, 2}}); }},
        {"no menu bar", pin("P", {"File"}, {{"menuOrigin", "appMenuBar"}}),
         "This item changed: \"File\" is no longer in the menu."},
        {"not running, menu bar",
         pin("P", {"File"}, {{"menuOrigin", "appMenuBar"}}),
         "Notes isn't running. Open it and try again.",
         nullptr,
         {}},
        {"hung, menu bar", barPin("P", {"File", "New"}), "Editor isn't responding.",
         [](TavrinMac& mac) { mac.set("hang", editorBundle); }},
        {"renamed, menu bar", barPin("P", {"File", "Gone"}),
         "This item changed: \"Gone\" is no longer in the menu. Current choices: New, Export."},
    };
}

TEST(PinFailures, tellWhyTheyDidNotRun) {
    for (const auto& [what, stored, message, prepare, applications] : failingRuns()) {
        SCOPED_TRACE(what);
        auto mac = started(macWithPins({stored}, applications));
        if (prepare) prepare(mac);
        runPin(mac, "P");
        EXPECT_EQ(chosen(mac), Strings{}) << "nothing was pressed";
        EXPECT_EQ(lastFailure(mac, "P"), message);
        EXPECT_TRUE(mac.shows("\"P\" didn't run"));
        EXPECT_TRUE(mac.shows(message));
        EXPECT_EQ(openMenus(mac), 0);
        mac.press("Edit Pin");
        mac.wait(1);
        EXPECT_FALSE(mac.shows(message)) << "the button closes the notice";
    }
}

TEST(PinFailures, blameHiddenItemsForAMenuThatDoesNotOpen) {
    auto mac = started(macWithPins({pin("P", {"Sync Now"})}));
    mac.set("menus", {{notesBundle, {{"ignoresPress", true}}}});
    mac.done({{"do", "drag"},
              {"from", {mac.itemsOf(notesBundle)[0]["frame"][0].get<double>() + 10, 12}},
              {"to", {700, 12}},
              {"modifiers", {"command"}}});
    mac.wait(1);
    clickControlAndWait(mac);
    ASSERT_TRUE(isCollapsed(mac));
    ASSERT_EQ(mac.itemsOf(notesBundle)[0].value("why", ""), "offscreen");
    (void)mac.events();
    runPin(mac, "P");
    EXPECT_TRUE(
        mac.shows("Notes's menu didn't open. It may show a panel instead of a menu. Tavrin is hiding items "
                  "right now; show them and try again."));
    EXPECT_TRUE(mac.events()["events"].empty()) << "an item off the screen isn't clicked";
}

TEST(PinFailures, askForAccessAndForgiveItsAbsenceLater) {
    auto mac = started(macWithPins({pin("P", {"Sync Now"}), pin("Q", {"Gone"})}));
    runPin(mac, "Q");
    mac.set("trusted", false);
    runPin(mac, "P");
    const std::string message = "Tavrin needs Accessibility access to open other apps' menus.";
    EXPECT_EQ(lastFailure(mac, "P"), message);
    EXPECT_TRUE(mac.shows(message));
    mac.press("Open Settings");
    mac.press("Tavrin");
    mac.wait(3);
    EXPECT_EQ(lastFailure(mac, "P"), "none");
    EXPECT_NE(lastFailure(mac, "Q"), "none") << "what failed for another reason stays";
    runPin(mac, "P");
    EXPECT_EQ(chosen(mac), Strings{synced});
}

TEST(PinFailures, noticeThatAccessGoesInTheMiddle) {
    for (const auto* answer : {"apiDisabled", "timesOut"}) {
        auto options = macWithPins({pin("P", {"Sync Now"})});
        options.model["revokedAccess"] = answer;
        auto mac = started(options);
        mac.set("menus", {{notesBundle, {{"opensAfter", 0.6}}}});
        request(mac, "P");
        mac.wait(0.3);
        mac.set("trusted", false);
        mac.wait(6);
        EXPECT_EQ(chosen(mac), Strings{});
        EXPECT_EQ(lastFailure(mac, "P"), std::string(answer) == "apiDisabled"
                                             ? "Tavrin needs Accessibility access to open other apps' menus."
                                             : "Notes isn't responding.");
        mac.set("trusted", true);
        mac.wait(3);
        EXPECT_EQ(lastFailure(mac, "P") == "none", std::string(answer) == "apiDisabled")
            << "the mark goes when the access is back";
    }
}

TEST(PinFailures, sayWhatHappenedWhileASubmenuOpened) {
    const std::vector<std::pair<std::function<void(TavrinMac&)>, std::string>> cases{
        {[](TavrinMac& mac) { mac.set("hang", notesBundle); }, "Notes isn't responding."},
        {[](TavrinMac& mac) { mac.set("trusted", false); },
         "Tavrin needs Accessibility access to open other apps' menus."}};
    for (const auto& [happen, message] : cases) {
        auto options = macWithPins({pin("P", {"Accounts", "Work", "Fetch"})});
        options.model["revokedAccess"] = "apiDisabled";
        auto mac = started(options);
        mac.set("menus", {{notesBundle, {{"fillsAfter", 0.6}}}});
        request(mac, "P");
        mac.wait(0.9);
        happen(mac);
        mac.wait(6);
        EXPECT_EQ(lastFailure(mac, "P"), message);
    }
}

TEST(PinFailures, closeByEscapeWhatIgnoresBeingCancelled) {
    auto mac = started(macWithPins({pin("P", {"Gone"})}));
    for (const bool ignores : {false, true}) {
        mac.set("menus", {{notesBundle, {{"ignoresCancel", ignores}}}});
        (void)mac.events();
        runPin(mac, "P");
        EXPECT_EQ(openMenus(mac), 0);
        const auto events = mac.events()["events"];
        EXPECT_EQ(events.size(), ignores ? 2u : 0u) << events;
        for (const auto& key : events)
            EXPECT_EQ(key.value("fields", json::object()).value("9", 0), 53) << key;
    }
    mac.set("menus", {{notesBundle, {{"ignoresCancel", true}, {"ignoresEscape", true}}}});
    runPin(mac, "P");
    EXPECT_EQ(openMenus(mac), 1) << "and gives up in the end";
    mac.key("escape");
    runPin(mac, "P");
    EXPECT_NE(lastFailure(mac, "P"), "none");
}

TEST(PinFailures, closeWhatOpenedTooLate) {
    struct Case {
        json faults;
        double latency = 0;
        std::string message;
    };

    for (const auto& [faults, latency, message] :
         {Case{{{"opensAfter", 0.3}}, 0.3, "Notes isn't responding."},
          Case{{{"opensAfter", 0.3}}, 0.8, "Notes isn't responding."},
          Case{{{"ignoresPress", true}, {"fillsAfter", 2}},
               0.001,
               "Notes's menu didn't open. It may show a panel instead of a menu."}}) {
        SCOPED_TRACE(faults.dump() + std::to_string(latency));
        auto mac = started(macWithPins({pin("P", {"Sync Now"})}));
        mac.set("menus", {{notesBundle, faults}});
        request(mac, "P");
        mac.wait(0.1);
        mac.set("latency", {{notesBundle, latency}});
        mac.wait(9);
        EXPECT_EQ(lastFailure(mac, "P"), message);
        EXPECT_EQ(openMenus(mac), 0);
        EXPECT_EQ(countOf(mac.events(), "keyDown"), 0) << "it lets itself be cancelled";
    }
}

/// Escape would wait for the application to come back, and dismiss what the item has shown.
TEST(PinFailures, postNoEscapeToAnApplicationThatFallsSilentAfterThePress) {
    for (const bool isBar : {false, true}) {
        const auto bundle = isBar ? editorBundle : notesBundle;
        auto mac = started(macWithPins({isBar ? barPin("P", {"File", "New"}) : pin("P", {"Sync Now"})}));
        mac.set("menus", {{bundle, {{"fillsAfter", 0.1}}}});
        request(mac, "P");
        auto happened = mac.events();
        for (int i = 0; i < 3000 && chosenIn(happened).empty(); ++i) {
            mac.wait(0.001);
            happened = mac.events();
        }
        ASSERT_EQ(chosenIn(happened).size(), 1u);
        mac.set("hang", bundle);
        mac.wait(5);
        EXPECT_EQ(lastFailure(mac, "P"), "none");
        EXPECT_EQ(countOf(mac.events(), "keyDown"), 0);
    }
}

TEST(PinFailures, readWhatIsBelowAnItemBeforeWhatIsBehindIt) {
    auto items = notesMenu();
    for (int i = 0; i < 700; ++i) items.push_back(entry("Entry " + std::to_string(i)));
    for (const double fillsAfter : {0.0, 0.2}) {
        auto mac = started(
            macWithPins({pin("P", {"Accounts", "Work", "Fetch"})}, {notesApplication(statusItem(items))}));
        if (fillsAfter > 0) mac.set("menus", {{notesBundle, {{"fillsAfter", fillsAfter}}}});
        runPin(mac, "P");
        EXPECT_EQ(lastFailure(mac, "P"), "none");
        EXPECT_EQ(chosen(mac), Strings{notesBundle + ": > Accounts > Work > Fetch"});
    }
}

/// A Mac on which a second process of the bundle runs, launched before all others.
TavrinMacOptions withHelper(TavrinMacOptions options, const std::string& bundle, json more = json::object()) {
    auto desktop = json::parse(options.desktopJson);
    auto& applications = desktop["applications"];
    applications.insert(applications.begin(), application(bundle, "Helper", "accessory", std::move(more)));
    options.desktopJson = desktop.dump();
    return options;
}

TEST(PinFailures, takeTheProcessWithTheMenuBar) {
    for (const auto& more : {json::object(), json{{"responding", false}}}) {
        auto mac = started(withHelper(macWithPins({barPin("P", {"File", "New"})}), editorBundle, more));
        runPin(mac, "P");
        EXPECT_EQ(lastFailure(mac, "P"), "none");
        EXPECT_EQ(chosen(mac), Strings{editorBundle + ": > New"});
    }
}

TEST(PinFailures, runBesideAHungProcessOfTheSameApplication) {
    auto mac =
        started(withHelper(macWithPins({pin("P", {"Sync Now"})}), notesBundle, {{"responding", false}}));
    runPin(mac, "P");
    EXPECT_EQ(chosen(mac), Strings{synced});
    EXPECT_EQ(lastFailure(mac, "P"), "none");
}

} // namespace
} // namespace mac_model
