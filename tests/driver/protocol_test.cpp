#include "support/tavrin_mac.h"
#include "terminal/menu_bar_drawing.h"
#include "terminal/prompt_line.h"
#include "terminal/simulator_options.h"
#include "terminal/tour.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace mac_model {
namespace {

bool has(const std::string& text, std::string_view part) { return text.find(part) != std::string::npos; }

} // namespace

TEST(Protocol, refusesBadLinesAndGoesOn) {
    TavrinMac mac;

    struct Case {
        std::string line;
        std::string part; // of the error
    };

    const std::vector<Case> cases{
        {"", "no JSON"},
        {"look", "no JSON"},
        {"{\"do\":\"look\"", "no JSON"},
        {"\xFF\xFE", "no JSON"},
        {R"({"do":"look","do":"look"})", "no JSON"},
        {std::string(200, '['), "no JSON"},
        {R"({"do":"look","x":")" + std::string(Driver::lineBytesMax, 'x') + "\"}", "1 MiB"},
        {"[]", "object"},
        {"null", "object"},
        {"{}", "\"do\""},
        {R"({"do":7})", "no command"},
        {R"({"do":"dance"})", "settle"},
        {R"({"do":"look","at":[1,2]})", "/at"},
        {R"({"do":"wait"})", "/seconds"},
        {R"({"do":"wait","seconds":"1"})", "/seconds"},
        {R"({"do":"wait","seconds":-1})", "/seconds"},
        {R"({"do":"wait","seconds":1e300})", "/seconds"},
        {R"({"do":"click"})", "\"at\""},
        {R"({"do":"click","at":[1]})", "/at"},
        {R"({"do":"click","at":[1,"2"]})", "/at"},
        {R"({"do":"click","at":[-5,5000]})", "screen"},
        {R"({"do":"click","at":[1,1],"text":"x"})", "one of"},
        {R"({"do":"click","at":[1,1],"index":0})", "index"},
        {R"({"do":"click","at":[1,1],"button":"middle"})", "/button"},
        {R"({"do":"click","at":[1,1],"count":0})", "/count"},
        {R"({"do":"click","at":[1,1],"modifiers":["hyper"]})", "/modifiers/0"},
        {R"({"do":"click","item":"org.nobody"})", "no item"},
        {R"({"do":"click","item":"com.apple.controlcenter","index":99})", "items"},
        {R"({"do":"menu","path":[]})", "path"},
        {R"({"do":"menu","path":["Finder"]})", "path"},
        {R"({"do":"menu","path":["Finder",1]})", "/path"},
        {R"({"do":"menu","path":["File","Nowhere"]})", "Nowhere"},
        {R"({"do":"menu","path":["File","Open"]})", "disabled"},
        {R"({"do":"menu","path":["View","Sort By"]})", "submenu"},
        {R"({"do":"drag","from":[1,1]})", "/to"},
        {R"({"do":"drag","text":"a","onto":"b"})", "nothing"},
        {R"({"do":"key","key":"hyper"})", "/key"},
        {R"({"do":"type","text":"a"})", "text field"},
        {R"({"do":"defaults","host":"mine"})", "/host"},
        {R"({"do":"set"})", "launch"},
        {R"({"do":"set","weather":"rain"})", "launch"},
    };
    for (const auto& [line, part] : cases) {
        const auto reply = json::parse(mac.driver().handleLine(line));
        EXPECT_EQ(reply["ok"], false) << line.substr(0, 80);
        if (reply["ok"]) continue;
        EXPECT_TRUE(has(reply["error"], part)) << line.substr(0, 80) << " → " << reply["error"];
        EXPECT_FALSE(has(reply["error"], "\n"));
    }
    EXPECT_TRUE(mac.look()["surfaces"].size() == 1) << "a refused menu stays open";
}

TEST(Protocol, setChangesAllOrNothing) {
    TavrinMac mac;
    const auto before = mac.look();
    const std::vector<json> refused{
        {{"trusted", true}, {"quit", "org.nobody"}},
        {{"trusted", true}, {"launch", {{"name", "No Bundle"}, {"statusItems", 7}}}},
        {{"trusted", true},
         {"launch", {{"bundleIdentifier", "a.b"}, {"name", "A"}, {"processIdentifier", 419}}}},
        {{"trusted", true}, {"screens", json::array()}},
        {{"trusted", true}, {"model", {{"zeroPosition", "sideways"}}}},
        {{"trusted", true}, {"latency", {{"org.example.notes", -1}}}},
        {{"trusted", true}, {"behindNotch", {{"org.example.notes", "maybe"}}}},
        {{"trusted", "yes"}, {"quit", "org.example.notes"}},
        {{"trusted", true}, {"removeItem", "com.apple.finder"}}};
    for (auto command : refused) {
        command["do"] = "set";
        EXPECT_FALSE(mac.refused(command).empty());
        const auto after = mac.look();
        EXPECT_EQ(after["world"], before["world"]) << command;
        EXPECT_EQ(after["menuBar"], before["menuBar"]) << command;
    }
    mac.done({{"do", "set"},
              {"reducedMotion", true},
              {"visibilityService", "silent"},
              {"quit", "org.example.notes"}});
    EXPECT_EQ(mac.look()["world"]["visibilityService"], "silent");
    EXPECT_TRUE(mac.itemsOf("org.example.notes").empty());
}

TEST(Protocol, pressFindsOneControl) {
    TavrinMac mac;
    EXPECT_TRUE(has(mac.refused({{"do", "press"}, {"text", "Close the Moon"}}), "Open System Settings"));
    EXPECT_TRUE(
        has(mac.refused({{"do", "press"}, {"text", "Click Accessibility"}}), "nothing")); // plain text
    mac.press("open system settings");
    // Both windows have a close button, and both can be reached.
    EXPECT_TRUE(has(mac.refused({{"do", "press"}, {"text", "close button"}}), "several"));
    mac.press("tavrin");
    mac.wait(5);
    mac.press("Deny");         // the dialog that came with System Settings
    mac.press("close button"); // one is left
    EXPECT_EQ(mac.surfacesOf("com.apple.systempreferences").size(), 0U);
    mac.press("Control Center"); // nothing on a surface: a status item
    EXPECT_EQ(mac.surfacesOf("com.apple.controlcenter").size(), 1U);
}

TEST(Protocol, examplesOfTheDocumentationWork) {
    std::ifstream file(std::string(TAVRIN_SOURCE_DIR) + "/docs/driving.md");
    std::ostringstream whole;
    whole << file.rdbuf();
    std::istringstream lines(whole.str());
    TavrinMac mac;
    bool isExample = false;
    std::set<std::string> used;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("```")) {
            isExample = line == "```json";
        } else if (isExample) {
            const auto reply = json::parse(mac.driver().handleLine(line));
            EXPECT_EQ(reply["ok"], true) << line << " → " << reply;
            used.insert(json::parse(line).value("do", ""));
        }
    }
    const auto all = mac.refused({{"do", "?"}});
    for (const auto* command : {"look",     "click",  "press",     "menu",  "drag",   "move",   "down",
                                "up",       "scroll", "key",       "wait",  "settle", "set",    "events",
                                "defaults", "stats",  "terminate", "start", "crash",  "perform"}) {
        EXPECT_TRUE(used.contains(command)) << command << " has no example";
        EXPECT_TRUE(has(all, command));
    }
    for (const auto& setting : json{"model", "latency", "behindNotch", "removeItem", "screens"})
        EXPECT_TRUE(has(whole.str(), "| `" + setting.get<std::string>())) << setting;
}

TEST(Protocol, promptTakesShortForms) {
    const std::vector<std::pair<std::string, json>> forms{
        {"look", {{"do", "look"}}},
        {"  press Open System Settings ", {{"do", "press"}, {"text", "Open System Settings"}}},
        {"click 900 12", {{"do", "click"}, {"button", "left"}, {"at", {900.0, 12.0}}}},
        {"right Tavrin", {{"do", "click"}, {"button", "right"}, {"text", "Tavrin"}}},
        {"menu Tavrin > Quit Tavrin", {{"do", "menu"}, {"path", {"Tavrin", "Quit Tavrin"}}}},
        {"drag Row > List", {{"do", "drag"}, {"text", "Row"}, {"onto", "List"}}},
        {"perform Row > Act", {{"do", "perform"}, {"text", "Row"}, {"action", "Act"}}},
        {"key control+option+h", {{"do", "key"}, {"key", "h"}, {"modifiers", {"control", "option"}}}},
        {"set trusted false", {{"do", "set"}, {"trusted", false}}},
        {"set quit org.example.notes", {{"do", "set"}, {"quit", "org.example.notes"}}},
        {R"({"do":"settle"})", {{"do", "settle"}}}};
    for (const auto& [line, command] : forms) EXPECT_EQ(parsePromptLine(line).value(), command) << line;
    for (const auto* line :
         {"", "wait", "wait long", "move 1", "set trusted", "look at this", "{", "key", "click", "drag Row"})
        EXPECT_FALSE(parsePromptLine(line)) << line;
}

TEST(Protocol, optionsNameOneMode) {
    using Arguments = std::vector<std::string_view>;
    const std::filesystem::path desktops = std::string(TAVRIN_SOURCE_DIR) + "/simulator/desktops";
    const Arguments good{"--stdio", "--desktop", "two-displays", "--profile", "p", "--seed", "7"};
    const auto options = parseSimulatorOptions(good, desktops);
    ASSERT_TRUE(options);
    EXPECT_EQ(options->desktop, desktops / "two-displays.json");
    EXPECT_EQ(options->seed, 7U);
    for (const auto& bad :
         {Arguments{}, Arguments{"--stdio", "--tour"}, Arguments{"--stdio", "--seed", "-1"},
          Arguments{"--stdio", "--seed"}, Arguments{"--stdio", "x"}, Arguments{"--desktop", "x"}})
        EXPECT_FALSE(parseSimulatorOptions(bad, desktops));
}

TEST(Protocol, tourEndsAtTheFirstOutcomeThatIsNotSeen) {
    TavrinMac mac;
    const json wait{{"do", "wait"}, {"seconds", 1}};
    const auto expecting = [&](bool holds) {
        return TourStep{"Step", {wait}, {{"it is so", [holds](const Seen&) { return holds; }}}};
    };
    std::ostringstream out;
    EXPECT_TRUE(playTour(mac.driver(), {expecting(true), expecting(true)}, 1, out));
    EXPECT_FALSE(playTour(mac.driver(), {expecting(false), expecting(true)}, 3, out));
    EXPECT_FALSE(playTour(mac.driver(), {{"Bad", {{{"do", "dance"}}}, {}}}, 5, out));
    EXPECT_TRUE(has(out.str(), "NOT SEEN: it is so"));
    EXPECT_FALSE(has(out.str(), "4. Step"));
}

TEST(Protocol, menuBarDrawingTellsWhatIsHidden) {
    TavrinMac mac;
    mac.finishOnboarding();
    const auto collapsed = drawMenuBar(mac.look());
    EXPECT_TRUE(has(collapsed, "››")) << collapsed;
    EXPECT_TRUE(has(collapsed, "▓▓▓")) << collapsed;
    EXPECT_TRUE(has(collapsed, "off screen")) << collapsed;
    mac.command({{"do", "crash"}});
    mac.settle();
    const auto crowded = drawMenuBar(mac.look());
    EXPECT_FALSE(has(crowded, "off screen")) << crowded;
    EXPECT_TRUE(has(crowded, "behind the notch")) << crowded;
    // No character but the text's own: it fits a terminal.
    EXPECT_LE(crowded.find('\n'), 118U * 4);
}

} // namespace mac_model
