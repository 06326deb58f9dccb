#include "main_tour_stations.h"

#include "base/base64.h"
#include "desktop/defaults_json.h"
#include "main_tour_words.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace mac_model {

namespace {

using namespace tour;

constexpr std::string_view onboardingTitle = "Welcome to Tavrin";

const std::string hint = "Your menu bar items are tucked away here. Click to choose which ones show.";
const std::string startCollapsed = "Skerrow.shouldStartCollapsed";

std::vector<TourStep> onboarding(const std::string& bundle) {
    return {
        {"Tavrin starts for the first time and asks for Accessibility access.",
         {wait(1)},
         {window(onboardingTitle), text("Allow Tavrin to tidy your menu bar"), noControl(bundle)}},
        {"Tavrin isn’t on the list there. Its button has macOS put it on the list, and leads to it.",
         {press("Open System Settings"), wait(1)},
         {window("Accessibility"), text("Tavrin"),
          text("“Tavrin” would like to control this computer using accessibility features."),
          noControl(bundle)}},
        {"The person sends that dialog away and turns Tavrin’s switch on; Tavrin says farewell to the window.",
         {press("Deny"), press("Tavrin"), wait(1)},
         {text("Accessibility is on. Tavrin is starting in your menu bar.")}},
        {"The person closes System Settings. Tavrin has tucked all items away that can be, and says where.",
         {key("w", {"command"}), wait(8)},
         {noWindow(onboardingTitle),
          noWindow("Accessibility"),
          collapsed(bundle),
          text(hint),
          stored(startCollapsed, true),
          {"Skerrow.hiddenItemIdentifiers names the hidden items",
           [](const Seen& seen) {
               return !seen.defaults.value("Skerrow.hiddenItemIdentifiers", json{}).empty();
           }}}},
    };
}

std::vector<TourStep> hidingAndRevealing(const std::string& bundle) {
    return {
        {"The first click on the control answers the hint: it opens the list of items instead of revealing them.",
         {click(bundle), wait(1)},
         {{"the hint is gone", [](const Seen& seen) { return !shows(seen, hint); }},
          text("Menu Bar Items"),
          expanded(bundle),
          stored("Skerrow.pendingFirstRunHint", false)}},
        {"Escape closes the list, and the items are tucked away again.",
         {key("escape"), wait(1)},
         {collapsed(bundle)}},
        {"A click on the control reveals them.",
         {click(bundle), wait(1)},
         {expanded(bundle), stored(startCollapsed, false)}},
        {"Another click hides them.",
         {click(bundle), wait(2)},
         {collapsed(bundle), stored(startCollapsed, true)}},
    };
}

/// The name is what the window calls an item that the program has hidden.
std::vector<TourStep> applying(const std::string& bundle) {
    const std::string item = "Wi-Fi";
    const std::string identifier = "com.apple.controlcenter::identifier:com.apple.menuextra.wifi";
    const auto isRightOfControl = [bundle](const Seen& seen) {
        bool isControlSeen = false;
        for (const auto& drawn : seen.look["menuBar"]) {
            if (drawn["owner"] == bundle && drawn.contains("symbol")) isControlSeen = true;
            if (drawn.value("identifier", "") == "com.apple.menuextra.wifi") return isControlSeen;
        }
        return false;
    };
    const Expectation pointerIsFree{"no button is down, and the pointer is to be seen", [](const Seen& seen) {
                                        const auto& pointer = seen.look["pointer"];
                                        return pointer["buttons"].empty() && pointer["visible"] == true;
                                    }};
    return {
        {"The person opens the list and drags " + item + " into the section “Shown”.",
         {click(bundle, "right"),
          press("Configure Items…"),
          wait(1),
          {{"do", "drag"}, {"text", item}, {"onto", "Shown"}}},
         {expanded(bundle),
          {"Skerrow.hiddenItemIdentifiers doesn’t name " + item,
           [identifier](const Seen& seen) {
               return std::ranges::none_of(seen.defaults["Skerrow.hiddenItemIdentifiers"],
                                           [&](const json& one) { return one == identifier; });
           }}}},
        {"“Apply and Hide” drags " + item + " to the visible side, as a person would with Command.",
         {press("Apply and Hide"), wait(8)},
         {collapsed(bundle), pointerIsFree, {item + " stands right of the control", isRightOfControl}}},
    };
}

std::vector<TourStep> toggleShortcut(const std::string& bundle) {
    return {
        {"Control-Option-H reveals them from any application.",
         {key("h", {"control", "option"}), wait(1)},
         {expanded(bundle)}},
        {"In the settings the person types another shortcut. Shift-K isn’t one, and the recorder goes on.",
         {click(bundle, "right"), press("Settings…"), wait(1), press("⌃⌥H"), key("k", {"shift"})},
         {window("Tavrin Settings"), text("Type shortcut…"), inFront(bundle)}},
        {"Option-Command-K is one, and is in force at once. Escape closes the settings.",
         {key("k", {"option", "command"}), key("escape"), key("k", {"option", "command"}), wait(2)},
         {noWindow("Tavrin Settings"), notInFront(bundle),
          stored("Skerrow.toggleShortcut", {{"enabled", true}, {"keyCode", 40}, {"modifiers", 0x180000}}),
          collapsed(bundle)}},
    };
}

std::vector<TourStep> fullScreen(const std::string& bundle) {
    const auto shortcut = key("k", {"option", "command"});
    const auto fills = [](bool isFull) { return json{{"do", "set"}, {"menuBarHidden", isFull}}; };
    const Expectation unseen{"the menu bar isn’t to be seen, and no item of it", [](const Seen& seen) {
                                 return std::ranges::none_of(seen.look["menuBar"], [](const json& item) {
                                     return item.value("drawn", false);
                                 });
                             }};
    const Expectation keptItems{"Tavrin hasn’t started its items over", [](const Seen& seen) {
                                    return !seen.defaults.contains("Skerrow.statusItemAutosaveVersion");
                                }};
    return {
        {"An application fills the screen, and the menu bar goes. The shortcut reveals the items all the same.",
         {fills(true), wait(1), shortcut, wait(2)},
         {unseen, keptItems, stored(startCollapsed, false)}},
        {"It hides them, too. When the menu bar is back, it is as it was before.",
         {shortcut, wait(2), fills(false), wait(3)},
         {collapsed(bundle), keptItems, stored(startCollapsed, true)}},
    };
}

std::vector<TourStep> quitting(const std::string& bundle) {
    return {
        {"A right click opens the control’s menu.",
         {click(bundle, "right")},
         {text("Configure Items…"), text("Show All Items"), text("Settings…"), text("Quit Tavrin"),
          collapsed(bundle)}},
        {"“Quit Tavrin” gives every item back and forgets nothing.",
         {press("Quit Tavrin"), wait(2)},
         {noControl(bundle),
          {"no item is hidden", [](const Seen& seen) { return countHidden(seen) == 0; }},
          {"Tavrin doesn’t run", [](const Seen& seen) { return !seen.look["world"]["running"].get<bool>(); }},
          stored(startCollapsed, true)}},
        {"Started again, Tavrin waits until macOS has placed its control.",
         {{{"do", "start"}}, wait(0.8)},
         {noWindow(onboardingTitle), notPlacedYet()}},
        {"Then it hides the items by itself.",
         {wait(4)},
         {noWindow(onboardingTitle), collapsed(bundle), stored(startCollapsed, true)}},
    };
}

/// A stored list of pinned actions with one in it.
json backupOfPins() {
    const std::string document =
        R"({"version":1,"pins":[{"id":"E621E1F8-C36C-495A-93FC-0C247A3E6E5F","name":"Plan","path":[)"
        R"({"title":"File"},{"title":"Open Recent"},{"title":"Plan.txt"}],"menuOrigin":"appMenuBar",)"
        R"("bundleIdentifier":"org.example.textdesk","applicationName":"Text Desk","statusItem":{"index":0},)"
        R"("hasConfirmedFirstRun":false}]})";
    tavrin::DefaultsData bytes;
    for (const char byte : document) bytes.push_back(std::byte(byte));
    return {{"$data", tavrin::base64From(bytes)}};
}

std::vector<TourStep> runningAPin(const std::string& bundle) {
    const Expectation ran{"“Plan.txt” was chosen in Text Desk, which is in front", [](const Seen& seen) {
                              const json path{"Open Recent", "Plan.txt"};
                              return seen.chosen.size() == 1 && seen.chosen[0]["path"] == path &&
                                     seen.look["frontmost"] == "org.example.textdesk";
                          }};
    return {
        {"The person brings a pinned action back from a backup of Tavrin’s preferences.",
         {{{"do", "terminate"}},
          wait(1),
          {{"do", "set"}, {"preferences", {{bundle, {{"Tavrin.pinnedActions", backupOfPins()}}}}}},
          {{"do", "start"}},
          wait(4)},
         {collapsed(bundle)}},
        {"It stands in the control’s menu, and asks before its first run.",
         {click(bundle, "right"), press("Plan"), wait(1)},
         {text("Run \"Plan\"?"),
          text(
              "Tavrin will bring Text Desk forward and choose File > Open Recent > Plan.txt from its menus. You're only asked the first time.")}},
        {"Then it chooses the menu item.", {press("Run"), wait(2)}, {ran}},
    };
}

} // namespace

std::vector<TourStep> nextMorning(const std::string& bundle) {
    std::vector<TourStep> steps{
        {"The Mac was switched off and on again. Tavrin has kept the choice and hides the items.",
         {wait(4)},
         {noWindow(onboardingTitle), collapsed(bundle), stored(startCollapsed, true)}}};
    for (auto& step : runningAPin(bundle)) steps.push_back(std::move(step));
    return steps;
}

std::vector<TourStep> firstDay(const std::string& bundle) {
    auto steps = onboarding(bundle);
    for (auto& step : hidingAndRevealing(bundle)) steps.push_back(std::move(step));
    for (auto& step : applying(bundle)) steps.push_back(std::move(step));
    for (auto& step : toggleShortcut(bundle)) steps.push_back(std::move(step));
    for (auto& step : fullScreen(bundle)) steps.push_back(std::move(step));
    for (auto& step : quitting(bundle)) steps.push_back(std::move(step));
    return steps;
}

} // namespace mac_model
