#include "app/app_delegate.h"
#include "platform/accessibility.h"
#include "platform/platform.h"
#include "scenarios/pin_acts.h"
#include "seam/passed_on.h"

#include <expected>
#include <functional>
#include <memory>
#include <stdexcept>

namespace mac_model {
namespace {

TEST(Pins, standInTheMenuOfTheControlInTheirOrder) {
    auto mac = started(macWithPins({pin("Sync", {"Sync Now"}), barPin("New Page", {"File", "New"})}));
    mac.rightClickItem(tavrinBundle);
    const auto rows = mac.surfacesOf(tavrinBundle).back()["children"];
    EXPECT_EQ(rows[0]["text"], "Sync");
    EXPECT_EQ(rows[1]["text"], "New Page");
    EXPECT_EQ(rows[0]["picture"], storedPin(mac, rows[0]["text"])["iconPNG"]);
    EXPECT_EQ(rows[1]["picture"], storedPin(mac, "New Page")["iconPNG"]);
    EXPECT_NE(rows[0]["picture"], rows[1]["picture"]);
    EXPECT_TRUE(rows[2].value("separator", false));
    EXPECT_EQ(rows[3]["text"], "Configure Items…");
}

TEST(Pins, bringNoSectionWhileThereAreNone) {
    auto mac = started(macWithPins({}));
    mac.rightClickItem(tavrinBundle);
    EXPECT_EQ(mac.surfacesOf(tavrinBundle).back()["children"][0]["text"], "Configure Items…");
}

TEST(Pins, askBeforeTheirFirstRunOnly) {
    const json unconfirmed{{"hasConfirmedFirstRun", false}, {"lastFailure", "Something."}};
    auto mac = started(macWithPins({pin("Leave", {"Quit Notes"}, unconfirmed)}));
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
    mac.key("escape");
    mac.wait(1);
    EXPECT_FALSE(mac.shows("Run \"Leave\"?"));
    request(mac, "Leave");
    mac.wait(1);
    mac.key("return");
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
    auto mac = started(macWithPins({stored}));
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
            auto mac = started(options);
            mac.set("menus", {{notesBundle, faults}});
            mac.done({{"do", "move"}, {"at", {300, 600}}});
            for (const auto& [name, path] :
                 {std::pair{"Sync", synced}, {"Fetch", notesBundle + ": > Accounts > Work > Fetch"}}) {
                (void)chosen(mac);
                request(mac, name);
                mac.done({{"do", "move"}, {"at", {300, 600}}});
                mac.wait(6);
                const auto happened = mac.events();
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
            const auto events = mac.events()["events"];
            const auto frame = mac.itemsOf(notesBundle)[0]["frame"];
            const auto down =
                std::ranges::find(events, "leftMouseDown", [](const json& e) { return e["type"]; });
            ASSERT_NE(down, events.end());
            EXPECT_EQ((*down)["at"][0], frame[0].get<double>() + frame[2].get<double>() / 2);
        }
}

/// Accessibility whose first action is a fault of the program.
class ThrowingOnce final : public tavrin::PassedOnAccessibility {
  public:
    using PassedOnAccessibility::PassedOnAccessibility;

    std::expected<void, tavrin::AccessibilityError> perform(const tavrin::AccessibilityElement& element,
                                                            std::string_view action) override {
        if (!std::exchange(hasThrown_, true)) throw std::runtime_error("a fault");
        return PassedOnAccessibility::perform(element, action);
    }

  private:
    bool hasThrown_ = false;
};

TEST(Pins, runAfterOneThatAFaultHasEnded) {
    std::unique_ptr<ThrowingOnce> accessibility;
    std::unique_ptr<tavrin::Platform> platform;
    auto options = macWithPins({pin("P", {"Sync Now"})});
    options.program = [&](tavrin::Platform& real) {
        accessibility = std::make_unique<ThrowingOnce>(real.accessibility);
        platform = std::make_unique<tavrin::Platform>(
            tavrin::Platform{real.scheduler, real.application, *accessibility, real.defaults,
                             real.eventMonitors, real.events, real.hotKeys, real.keyboard, real.loginItem,
                             real.presentation, real.randomness, real.screens, real.statusItems, real.text,
                             real.visibilityService, real.windowServer, real.workspace, real.updater});
        return tavrin::makeAppDelegate(*platform);
    };
    auto mac = started(options);
    runPin(mac, "P");
    EXPECT_EQ(chosen(mac), Strings{});
    runPin(mac, "P");
    EXPECT_EQ(chosen(mac), Strings{synced});
}

TEST(Pins, walkTheMenuBarOfAnApplication) {
    for (const bool isLazy : {false, true}) {
        auto mac = started(
            macWithPins({barPin("PDF", {"File", "Export", "As PDF"}), barPin("Gone", {"File", "Gone"})}));
        mac.set("model", {{"othersActivation", isLazy ? "granted" : "declined"}});
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

/// Many applications disable entries while they aren't in front.
TEST(Pins, waitUntilTheApplicationIsInFront) {
    auto mac = started(macWithPins({barPin("PDF", {"File", "Export", "As PDF"})}));
    mac.set("menus", {{editorBundle, {{"isDisabledBehind", true}}}});
    mac.set("activationTime", 0.3);
    runPin(mac, "PDF");
    EXPECT_EQ(chosen(mac), Strings{editorBundle + ": > Export > As PDF…"});
    EXPECT_EQ(lastFailure(mac, "PDF"), "none");
}

} // namespace
} // namespace mac_model
