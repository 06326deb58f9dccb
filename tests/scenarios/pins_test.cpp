#include "scenarios/pin_acts.h"

#include <functional>

namespace mac_model {
namespace {

using Strings = std::vector<std::string>;

TEST(Pins, standInTheMenuOfTheControlInTheirOrder) {
    TavrinMac mac(macWithPins({pin("Sync", {"Sync Now"}), barPin("New Page", {"File", "New"})}));
    mac.wait(2);
    mac.rightClickItem(tavrinBundle);
    const auto rows = mac.surfacesOf(tavrinBundle).back()["children"];
    EXPECT_EQ(rows[0]["text"], "Sync");
    EXPECT_EQ(rows[0]["icon"], notesBundle);
    EXPECT_EQ(rows[1]["text"], "New Page");
    EXPECT_EQ(rows[1]["icon"], editorBundle);
    EXPECT_TRUE(rows[2].value("separator", false));
    EXPECT_EQ(rows[3]["text"], "Configure Items…");
}

TEST(Pins, bringNoSectionWhileThereAreNone) {
    TavrinMac mac(macWithPins({}));
    mac.wait(2);
    mac.rightClickItem(tavrinBundle);
    EXPECT_EQ(mac.surfacesOf(tavrinBundle).back()["children"][0]["text"], "Configure Items…");
}

TEST(Pins, askBeforeTheirFirstRunOnly) {
    const json unconfirmed{{"hasConfirmedFirstRun", false}, {"lastFailure", "Something."}};
    TavrinMac mac(macWithPins({pin("Leave", {"Quit Notes"}, unconfirmed)}));
    mac.wait(2);
    request(mac, "Leave");
    mac.wait(1);
    EXPECT_TRUE(mac.shows("Run \"Leave\"?"));
    EXPECT_TRUE(
        mac.shows("Tavrin will open Notes's menu bar menu and choose Quit Notes. You're only asked the "
                  "first time.\n\nThis item looks like it may quit, sign out, delete or stop "
                  "something."));
    mac.press("Cancel");
    mac.wait(3);
    EXPECT_EQ(chosen(mac), Strings{});
    EXPECT_EQ(storedPin(mac, "Leave")["hasConfirmedFirstRun"], false);
    EXPECT_EQ(lastFailure(mac, "Leave"), "Something.") << "to decline is no failure and changes nothing";
    request(mac, "Leave");
    mac.wait(1);
    mac.done({{"do", "key"}, {"key", "escape"}});
    mac.wait(1);
    EXPECT_FALSE(mac.shows("Run \"Leave\"?"));
    request(mac, "Leave");
    mac.wait(1);
    mac.done({{"do", "key"}, {"key", "return"}});
    mac.wait(3);
    EXPECT_EQ(chosen(mac), Strings{notesBundle + ": > Quit Notes"});
    EXPECT_EQ(storedPin(mac, "Leave")["hasConfirmedFirstRun"], true);
    EXPECT_EQ(lastFailure(mac, "Leave"), "none");
    runPin(mac, "Leave");
    EXPECT_EQ(chosen(mac).size(), 1u) << "unasked";
}

TEST(Pins, sayWhatTheFirstRunOfAMenuBarPinDoes) {
    auto stored = barPin("New", {"File", "New"});
    stored["hasConfirmedFirstRun"] = false;
    TavrinMac mac(macWithPins({stored}));
    mac.wait(2);
    request(mac, "New");
    mac.wait(1);
    EXPECT_TRUE(
        mac.shows("Tavrin will bring Editor forward and choose File > New from its menus. You're only "
                  "asked the first time."));
}

/// What an application's menu may do, and the run must succeed all the same.
TEST(Pins, runHoweverTheMenuOpens) {
    struct Case {
        json faults;
        json item;
        bool takesAClick = false;
    };

    const std::vector<Case> cases{{json::object(), json::object()},
                                  {{{"ignoresPress", true}}, json::object(), true},
                                  {json::object(), {{"actions", json::array({"AXShowMenu"})}}},
                                  {{{"ignoresPress", true}}, {{"actions", json::array()}}, true},
                                  {{{"hidesShownMenu", true}}, json::object()},
                                  {{{"opensAfter", 0.8}}, json::object()},
                                  {{{"opensAfter", 0.8}, {"fillsAfter", 0.3}}, {{"nesting", 3}}},
                                  {{{"fillsAfter", 0}, {"hidesShownMenu", true}}, json::object()},
                                  {{{"blocksInPress", true}}, json::object()},
                                  {{{"ignoresCancel", true}}, json::object()}};
    for (const auto* closedMenus : {"listed", "empty"})
        for (const auto& [faults, item, takesAClick] : cases) {
            SCOPED_TRACE(faults.dump() + item.dump() + closedMenus);
            auto options =
                macWithPins({pin("Sync", {"Sync Now"}), pin("Fetch", {"Accounts", "Work", "Fetch"})},
                            {notesApplication(statusItem(notesMenu(), item))});
            options.model["closedMenus"] = closedMenus;
            TavrinMac mac(options);
            mac.wait(2);
            mac.set("menus", {{notesBundle, faults}});
            mac.done({{"do", "move"}, {"at", {300, 600}}});
            for (const auto& [name, path] :
                 {std::pair{"Sync", synced}, {"Fetch", notesBundle + ": > Accounts > Work > Fetch"}}) {
                (void)chosen(mac);
                request(mac, name);
                mac.done({{"do", "move"}, {"at", {300, 600}}});
                mac.wait(6);
                const auto happened = mac.done({{"do", "events"}});
                EXPECT_EQ(chosenIn(happened), Strings{path});
                EXPECT_EQ(countOf(happened, "leftMouseDown"), takesAClick ? 1 : 0);
                EXPECT_EQ(countOf(happened, "keyDown"), 0) << "the menu has gone by itself";
                EXPECT_EQ(lastFailure(mac, name), "none");
                EXPECT_EQ(openMenus(mac), 0);
                EXPECT_TRUE(mac.surfacesOf(tavrinBundle).empty()) << "no notice";
                EXPECT_EQ(mac.look()["pointer"]["at"], (json{300, 600})) << "a click gives the pointer back";
            }
            if (!takesAClick) continue;
            request(mac, "Sync");
            mac.wait(6);
            const auto events = mac.done({{"do", "events"}})["events"];
            const auto frame = mac.itemsOf(notesBundle)[0]["frame"];
            const auto down =
                std::ranges::find(events, "leftMouseDown", [](const json& e) { return e["type"]; });
            ASSERT_NE(down, events.end());
            EXPECT_EQ((*down)["at"][0], frame[0].get<double>() + frame[2].get<double>() / 2);
        }
}

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

TEST(Pins, tellWhyTheyDidNotRun) {
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

TEST(Pins, blameHiddenItemsForAMenuThatDoesNotOpen) {
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

TEST(Pins, askForAccessAndForgiveItsAbsenceLater) {
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

TEST(Pins, noticeThatAccessGoesInTheMiddle) {
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

TEST(Pins, closeByEscapeWhatIgnoresBeingCancelled) {
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

TEST(Pins, walkTheMenuBarOfAnApplication) {
    for (const bool isLazy : {false, true}) {
        TavrinMac mac(
            macWithPins({barPin("PDF", {"File", "Export", "As PDF"}), barPin("Gone", {"File", "Gone"})}));
        mac.wait(2);
        if (isLazy) mac.set("menus", {{editorBundle, {{"fillsAfter", 0.2}}}});
        runPin(mac, "PDF");
        EXPECT_EQ(chosen(mac), Strings{editorBundle + ": > Export > As PDF…"});
        EXPECT_EQ(lastFailure(mac, "PDF"), "none");
        EXPECT_EQ(mac.mac().processes().frontmost()->application.name, "Editor");
        EXPECT_EQ(openMenus(mac), 0);
        runPin(mac, "Gone");
        EXPECT_EQ(openMenus(mac), 0) << "what was opened on the way is closed";
    }
}

TEST(Pins, takeThreeMessagesANodeAtMost) {
    json items = json::array();
    for (int i = 0; i < 400; ++i) items.push_back(entry("Entry " + std::to_string(i)));
    TavrinMac mac(macWithPins({pin("P", {"Entry 399"})}, {notesApplication(statusItem(items))}));
    mac.wait(2);
    const auto sent = [&] { return mac.done({{"do", "stats"}})["messages"].value(notesBundle, 0); };
    const int before = sent();
    runPin(mac, "P");
    EXPECT_EQ(chosen(mac).size(), 1u);
    EXPECT_LE(sent() - before, 3 * 401 + 20) << "the rest finds, opens and closes";
}

TEST(Pins, costOneTimeOutWhenAnApplicationHangsAndTheMainThreadNothing) {
    TavrinMac mac(macWithPins({pin("P", {"Sync Now"})}));
    mac.wait(2);
    mac.set("hang", notesBundle);
    request(mac, "P");
    mac.wait(0.2);
    mac.rightClickItem(tavrinBundle);
    EXPECT_TRUE(mac.shows("Configure Items…")) << "the control answers while the run waits";
    mac.wait(0.6);
    EXPECT_EQ(lastFailure(mac, "P"), "none");
    mac.wait(0.3);
    EXPECT_EQ(lastFailure(mac, "P"), "Notes isn't responding.");
}

TEST(Pins, costABoundedTimeWhenAnApplicationHangsInTheMiddle) {
    for (const double after : {0.0, 0.001, 0.002, 0.004, 0.006, 0.01, 0.05, 0.1, 0.3}) {
        SCOPED_TRACE(after);
        TavrinMac mac(macWithPins({pin("P", {"Accounts", "Work", "Fetch"}), barPin("Q", {"File", "New"})}));
        mac.wait(2);
        request(mac, "P");
        mac.wait(after);
        mac.set("hang", notesBundle);
        mac.wait(4);
        const auto failure = lastFailure(mac, "P");
        EXPECT_TRUE(failure == "Notes isn't responding." || failure == "none") << failure;
        runPin(mac, "Q");
        EXPECT_EQ(lastFailure(mac, "Q"), "none") << "the next one runs";
        mac.set("resume", notesBundle);
    }
}

TEST(Pins, runOneAtATime) {
    TavrinMac mac(macWithPins({pin("P", {"Sync Now"}), pin("Q", {"Accounts", "Home"})}));
    mac.wait(2);
    mac.set("hang", notesBundle);
    request(mac, "P");
    mac.wait(0.1);
    request(mac, "Q");
    EXPECT_TRUE(mac.shows("\"Q\" didn't run"));
    EXPECT_TRUE(mac.shows("Another pinned action is still running."));
    EXPECT_EQ(lastFailure(mac, "Q"), "none") << "and this is no failure of it";
    mac.set("resume", notesBundle);
    mac.wait(5);
    EXPECT_EQ(chosen(mac), Strings{synced});
    runPin(mac, "Q");
    EXPECT_EQ(chosen(mac), Strings{notesBundle + ": > Accounts > Home"});
}

TEST(Pins, runOnceWhenAskedForTwiceWithinHalfASecond) {
    for (const auto& [pause, runs] : {std::pair{0.1, 1u}, {0.3, 1u}, {0.55, 2u}, {3.0, 2u}}) {
        TavrinMac mac(macWithPins({pin("P", {"Sync Now"})}));
        mac.wait(2);
        request(mac, "P");
        mac.wait(pause);
        request(mac, "P");
        mac.wait(5);
        EXPECT_EQ(chosen(mac).size(), runs) << pause;
    }
}

TEST(Pins, runAgainAndAgain) {
    TavrinMac mac(macWithPins({pin("P", {"Sync Now"}), barPin("Q", {"File", "New"})}));
    mac.wait(2);
    for (int i = 0; i < 20; ++i) {
        runPin(mac, i % 2 == 0 ? "P" : "Q");
        EXPECT_EQ(chosen(mac).size(), 1u);
    }
    mac.wait(20);
    EXPECT_EQ(mac.done({{"do", "stats"}})["timers"], 0) << "nothing is left behind";
    EXPECT_EQ(mac.done({{"do", "stats"}})["tasks"], 0);
}

/// At any moment of a run, whatever the application does: Tavrin ends soon and leaves no menu behind.
TEST(Pins, letTavrinQuitAtAnyMoment) {
    for (const bool hangs : {false, true})
        for (const bool isBar : {false, true})
            for (int moment = 0; moment < 14; ++moment) {
                SCOPED_TRACE(std::to_string(moment) + (hangs ? " hung" : "") + (isBar ? " bar" : ""));
                const auto bundle = isBar ? editorBundle : notesBundle;
                TavrinMac mac(macWithPins({isBar ? barPin("P", {"File", "Export", "As PDF"})
                                                 : pin("P", {"Accounts", "Work", "Fetch"})}));
                mac.wait(2);
                mac.set("menus", {{bundle, {{"fillsAfter", 0.1}}}});
                request(mac, "P");
                mac.wait(0.05 * moment);
                if (hangs) mac.set("hang", bundle);
                mac.done({{"do", "terminate"}});
                mac.wait(2);
                EXPECT_TRUE(mac.itemsOf(tavrinBundle).empty()) << "it has ended";
                if (!hangs) {
                    EXPECT_EQ(openMenus(mac), 0);
                }
                if (hangs) mac.set("resume", bundle);
                mac.done({{"do", "start"}});
                mac.wait(3);
                runPin(mac, "P");
                EXPECT_EQ(lastFailure(mac, "P"), "none") << "and runs it the next time";
            }
}

TEST(Pins, outliveAnAlertThatNobodyAnswers) {
    TavrinMac mac(
        macWithPins({pin("P", {"Sync Now"}, {{"hasConfirmedFirstRun", false}}), pin("Q", {"Twin"})}));
    mac.wait(2);
    request(mac, "P");
    mac.wait(1);
    request(mac, "Q");
    mac.wait(1);
    EXPECT_TRUE(mac.shows("Run \"P\"?"));
    EXPECT_EQ(lastFailure(mac, "Q"), "none") << "one question at a time";
    mac.set("quit", notesBundle);
    mac.press("Run");
    mac.wait(2);
    EXPECT_EQ(lastFailure(mac, "P"), "Notes isn't running. Open it and try again.");
    mac.done({{"do", "terminate"}});
    mac.wait(1);
    EXPECT_TRUE(mac.surfacesOf(tavrinBundle).empty());
}

} // namespace
} // namespace mac_model
