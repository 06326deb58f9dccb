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
        TavrinMac mac(macWithPins({stored}, applications));
        mac.wait(2);
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
    TavrinMac mac(macWithPins({pin("P", {"Sync Now"})}));
    mac.wait(2);
    mac.set("menus", {{notesBundle, {{"ignoresPress", true}}}});
    mac.done({{"do", "drag"},
              {"from", {mac.itemsOf(notesBundle)[0]["frame"][0].get<double>() + 10, 12}},
              {"to", {700, 12}},
              {"modifiers", {"command"}}});
    mac.wait(1);
    clickControlAndWait(mac);
    ASSERT_TRUE(isCollapsed(mac));
    ASSERT_EQ(mac.itemsOf(notesBundle)[0].value("why", ""), "offscreen");
    (void)mac.done({{"do", "events"}});
    runPin(mac, "P");
    EXPECT_TRUE(
        mac.shows("Notes's menu didn't open. It may show a panel instead of a menu. Tavrin is hiding items "
                  "right now; show them and try again."));
    EXPECT_TRUE(mac.done({{"do", "events"}})["events"].empty()) << "an item off the screen isn't clicked";
}

TEST(PinFailures, askForAccessAndForgiveItsAbsenceLater) {
    TavrinMac mac(macWithPins({pin("P", {"Sync Now"}), pin("Q", {"Gone"})}));
    mac.wait(2);
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
        TavrinMac mac(options);
        mac.wait(2);
        mac.set("menus", {{notesBundle, {{"opensAfter", 0.6}}}});
        request(mac, "P");
        mac.wait(0.3);
        mac.set("trusted", false);
        mac.wait(6);
        EXPECT_EQ(chosen(mac), Strings{});
        EXPECT_EQ(lastFailure(mac, "P"), std::string(answer) == "apiDisabled"
                                             ? "Tavrin needs Accessibility access to open other apps' menus."
                                             : "Notes isn't responding.");
    }
}

TEST(PinFailures, closeByEscapeWhatIgnoresBeingCancelled) {
    TavrinMac mac(macWithPins({pin("P", {"Gone"})}));
    mac.wait(2);
    for (const bool ignores : {false, true}) {
        mac.set("menus", {{notesBundle, {{"ignoresCancel", ignores}}}});
        (void)mac.done({{"do", "events"}});
        runPin(mac, "P");
        EXPECT_EQ(openMenus(mac), 0);
        const auto events = mac.done({{"do", "events"}})["events"];
        EXPECT_EQ(events.size(), ignores ? 2u : 0u) << events;
        for (const auto& key : events)
            EXPECT_EQ(key.value("fields", json::object()).value("9", 0), 53) << key;
    }
    mac.set("menus", {{notesBundle, {{"ignoresCancel", true}, {"ignoresEscape", true}}}});
    runPin(mac, "P");
    EXPECT_EQ(openMenus(mac), 1) << "and gives up in the end";
    mac.done({{"do", "key"}, {"key", "escape"}});
    runPin(mac, "P");
    EXPECT_NE(lastFailure(mac, "P"), "none");
}

} // namespace
} // namespace mac_model
