#include "desktop/desktop_loader.h"

#include <fstream>
#include <gtest/gtest.h>
#include <limits>
#include <nlohmann/json.hpp>
#include <sstream>

namespace mac_model {
namespace {

using nlohmann::json;

std::string contentsOf(const std::filesystem::path& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

std::string errorOf(std::string_view text) {
    const auto desktop = parseDesktopFile(text, "mac.json");
    return desktop ? "accepted" : desktop.error();
}

/// A good file with `patch` (RFC 6902) made to it.
std::string errorAfter(std::string_view patch) {
    static const json good = json::parse(R"({
        "macOS": {"major": 26, "minor": 1},
        "screens": [{"frame": [0, 0, 1512, 982],
                     "leftMenuBarArea": [0, 0, 663, 38], "rightMenuBarArea": [849, 0, 663, 38]},
                    {"frame": [1512, 0, 1920, 1080]}],
        "applications": [
            {"bundleIdentifier": "org.example.a", "name": "A", "processIdentifier": 1, "policy": "regular",
             "menuBar": [{"title": "File", "items": [{"title": "New", "key": "n"}, {"separator": true}]}]},
            {"bundleIdentifier": "org.example.b", "name": "B", "processIdentifier": 2, "policy": "accessory",
             "statusItems": [{"width": 28, "preferredPosition": 210, "opens": "menu", "menu": [{"title": "M"}]},
                             {"width": 30}]}],
        "defaults": {"org.example.b": {"NSStatusItem Preferred Position Item-0": 210}},
        "bundles": {"/x.menu": "com.apple.menuextra.x"}, "model": {"longItem": "pushes"}})");
    return errorOf(good.patch(json::parse(patch)).dump());
}

std::string put(std::string_view pointer, std::string_view value) {
    return errorAfter(R"([{"op": "add", "path": ")" + std::string(pointer) + R"(", "value": )" +
                      std::string(value) + "}]");
}

TEST(DesktopLoader, refusesTextThatIsNoStrictJson) {
    const std::pair<std::string, const char*> cases[] = {
        {"", "/: is not JSON at line 1, column 1: unexpected end of input; expected '[', '{', or a literal."},
        {"[]", "/: must be an object, not an array."},
        {"{\"screens\": [\n  {}, }", "/screens/1: is not JSON at line 2, column 7: unexpected '}'; expected "
                                     "'[', '{', or a literal."},
        {"{} {}", "/: is not JSON at line 1, column 4: unexpected '{'; expected end of input."},
        {"{\"a\": [{\"b/~\": 1, \"b/~\": 1}]}", "/a/0/b~1~0: is given twice in one object."},
        {"{\"a\": {}, \"a\": 1}", "/a: is given twice in one object."},
        {"{\"name\": \"\xff\"}",
         "/name: is not JSON at line 1, column 11: invalid string: ill-formed UTF-8 byte."},
        {"{\"a\": NaN}", "/a: is not JSON at line 1, column 7: invalid literal."},
        {"{\"a\": [1e999]}", "/a/0: is not JSON at line 1, column 12: a number is too large."},
        {"{\"a\\n\": NaN}", "/a\\x0a: is not JSON at line 1, column 9: invalid literal."},
    };
    for (const auto& [text, expected] : cases) EXPECT_EQ(errorOf(text), "mac.json: " + std::string(expected));
}

TEST(DesktopLoader, survivesAbsurdSizes) {
    EXPECT_TRUE(errorOf(std::string(5'000'000, '[')).ends_with("/: is larger than 4 MiB."));
    EXPECT_TRUE(errorOf(std::string(4'000'000, '[')).ends_with("/0/0: is nested more than 64 levels deep."));
    std::string applications;
    for (int i = 0; i < 2000; ++i) applications += "0,";
    EXPECT_EQ(put("/applications", '[' + applications + "0]"),
              "mac.json: /applications: has 2001 entries; 2000 is the most.");
    const std::string longKey(100'000, 'k');
    EXPECT_LT(put('/' + longKey, "1").size(), 400U);
}

TEST(DesktopLoader, namesThePlaceOfEachFault) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"/colour", "1", "/colour: is not a key that belongs here"},
        {"/macOS/major", "\"26\"", "/macOS/major: must be a whole number from 11 to 99"},
        {"/macOS/minor", "1.5", "/macOS/minor: must be a whole number from 0 to 99"},
        {"/accessibilityTrusted", "1", "/accessibilityTrusted: must be true or false, not a number"},
        {"/loginItem", "true",
         R"(/loginItem: must be "accepts", "requiresApproval", "notFound" or "refuses", not true or false)"},
        {"/visibilityService", "\"gone\"",
         R"(/visibilityService: must be "accepts", "rejects", "silent" or "absent", not "gone")"},

        {"/screens", "[]", "/screens: has no screen with its top left corner at 0, 0"},
        {"/screens/0/frame", "[0, 1, 1512, 982]",
         "/screens/0/leftMenuBarArea: lies outside the frame of its screen"},
        {"/screens/1/frame", "[1512, 0, 1920]",
         "/screens/1/frame: must be four finite numbers [x, y, width, height]"},
        {"/screens/1/frame", "[1512, 0, 0, 9]", "/screens/1/frame: must have a positive width and height"},
        {"/screens/1/frame", "[1e300, 0, 9, 9]",
         "/screens/1/frame: lies more than 100000 points from the origin"},
        {"/screens/1/frame", "[1511, 981, 9, 9]", "/screens/1/frame: overlaps the frame of /screens/0"},
        {"/screens/0/leftMenuBarArea", "[0, 0, 850, 38]",
         "/screens/0/rightMenuBarArea: must lie right of the left area without overlapping it"},
        {"/screens/0/leftMenuBarArea", "[0, 5, 663, 38]",
         "/screens/0/leftMenuBarArea: must lie along the top edge of its screen"},
        {"/screens/1/leftMenuBarArea", "[1512, 0, 9, 38]",
         "/screens/1/rightMenuBarArea: is missing beside the other area"},

        {"/applications/1/processIdentifier", "1",
         "/applications/1/processIdentifier: 1 is already the process identifier of /applications/0"},
        {"/applications/1/processIdentifier", "2147483648",
         "/applications/1/processIdentifier: must be a whole number from 1 to 99998"},
        {"/applications/1/policy", "\"agent\"",
         R"(/applications/1/policy: must be "regular", "accessory" or "background", not "agent")"},
        {"/applications/1/statusItems/1/widht", "5",
         "/applications/1/statusItems/1/widht: is not a key that belongs here"},
        {"/applications/1/statusItems/1/width", "0",
         "/applications/1/statusItems/1/width: must be a number from 1 to 10000"},
        {"/applications/1/statusItems/1/menu", "{}",
         "/applications/1/statusItems/1/menu: must be an array, not an object"},
        {"/applications/1/statusItems/0/opens", "\"popover\"",
         R"(/applications/1/statusItems/0/menu: is given, but the item opens "popover")"},
        {"/applications/1/statusItems/1/autosaveName", "\"Item-0\"",
         R"(/applications/1/statusItems/1/autosaveName: "Item-0" is already the name of /applications/1/statusItems/0)"},
        {"/applications/1/statusItems/0/preferredPosition", "211",
         R"(/applications/1/statusItems/0/preferredPosition: differs from what "defaults" stores for "Item-0")"},
        {"/applications/1/statusItems/1/actions", "[\"Press\"]",
         R"(/applications/1/statusItems/1/actions/0: must be the name of an action, such as "AXPress")"},
        {"/applications/0/menuBar/0/items/1/title", "\"T\"",
         "/applications/0/menuBar/0/items/1/title: is not a key that belongs here"},
        {"/applications/0/menuBar/0/items/0/modifiers", "[\"hyper\"]",
         R"(/applications/0/menuBar/0/items/0/modifiers/0: must be "shift", "option", "control" or "command", not "hyper")"},

        {"/defaults/org.example.b/x", "[null]",
         "/defaults/org.example.b/x/0: is null, which preferences cannot hold"},
        {"/defaults/org.example.b/x", R"([{"$data": "a?"}])",
         R"(/defaults/org.example.b/x/0: must be one of {"$data": base64}, {"$bytes": base64}, )"
         R"({"$real": "nan"}, {"$real": "inf"}, {"$real": "-inf"} and {"$dictionary": {…}}, since a key )"
         R"(begins with "$")"},
        {"/defaults/org.example.b/x", R"({"$dictionary": {"$a": {"$b": null}}})",
         "/defaults/org.example.b/x/$dictionary/$a/$b: is null, which preferences cannot hold"},
        {"/defaults/byHost", "{\"d\": 1}", "/defaults/byHost/d: must be an object, not a number"},
        {"/bundles/~1x.menu", "7", "/bundles/~1x.menu: must be a text, not a number"},
        {"/model/longItem", "\"stops\"",
         R"(/model/longItem: must be "pushes" or "stopsAtMenus", not "stops")"},
        {"/model/longItems", "\"pushes\"", "/model/longItems: is not a key that belongs here"},
    };
    for (const auto& [pointer, value, expected] : cases)
        EXPECT_EQ(put(pointer, value), "mac.json: " + std::string(expected) + '.');
}

TEST(DesktopLoader, takesEveryFormOfAStoredValue) {
    const char* value =
        R"([{"$data": "AQI="}, {"$bytes": "/w=="}, {"$real": "-inf"}, {"$dictionary": {"$a": 1}}])";
    EXPECT_EQ(put("/defaults/org.example.b/x", value), "accepted");
}

TEST(DesktopLoader, namesWhatIsMissing) {
    for (const char* pointer : {"/macOS", "/macOS/major", "/screens", "/screens/1/frame", "/applications",
                                "/applications/0/name", "/applications/0/policy",
                                "/applications/0/processIdentifier", "/applications/1/statusItems/0/width"})
        EXPECT_EQ(errorAfter(R"([{"op": "remove", "path": ")" + std::string(pointer) + "\"}]"),
                  "mac.json: " + std::string(pointer) + ": is missing.");
}

TEST(DesktopLoader, saysWhyAFileCannotBeRead) {
    const std::filesystem::path missing = "/no such folder/\n.json";
    EXPECT_EQ(loadDesktopFile(missing).error(),
              "/no such folder/\\x0a.json: cannot be read: No such file or directory.");
    EXPECT_EQ(loadDesktopFile("/tmp").error(), "/tmp: cannot be read: it is a folder.");
}

TEST(DesktopLoader, readsValuesThatDidNotComeFromText) {
    json screens = json::parse(R"([{"frame": [10, 0, 10, 10]}, {"frame": [0, 0, 10, 10]}])");
    const auto sorted = parseScreens(screens, "/set/screens", {15, 0});
    ASSERT_TRUE(sorted);
    EXPECT_EQ(sorted->front().frame.x, 0);
    screens[0]["frame"][1] = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(parseScreens(screens, "/set/screens", {15, 0}).error(),
              "/set/screens/0/frame: must be four finite numbers [x, y, width, height].");

    json menu = json::array();
    for (int depth = 0; depth < 5000; ++depth) menu = json::array({{{"items", std::move(menu)}}});
    json application{{"name", "A"}, {"policy", "regular"}, {"menuBar", std::move(menu)}};
    EXPECT_TRUE(parseApplication(application, "/launch").error().ends_with("is more than 24 menus deep."));
    application["menuBar"] = json::array();
    EXPECT_EQ(parseApplication(application, "/launch").value().processIdentifier, 0);
}

TEST(DesktopLoader, derivesTheMenuBarHeight) {
    const auto heightOf = [](int major, const char* screen) {
        return parseScreens(json::array({json::parse(screen)}), "", {major, 0}).value()[0].menuBarHeight;
    };
    const char* plain = R"({"frame": [0, 0, 800, 600]})";
    const char* shallow = R"({"frame": [0, 0, 800, 600], "leftMenuBarArea": [0, 0, 300, 32],
                              "rightMenuBarArea": [500, 0, 300, 32]})";
    EXPECT_EQ(heightOf(15, plain), 24);
    EXPECT_EQ(heightOf(26, plain), 30);
    EXPECT_EQ(heightOf(15, shallow), 37);
    EXPECT_EQ(heightOf(27, shallow), 32);
}

TEST(DesktopLoader, keepsEveryValueOfTheContract) {
    const auto desktop = parseDesktopFile(R"({
        "macOS": {"major": 27, "minor": 3}, "screens": [{"frame": [0, 0, 800, 600], "scale": 1, "menuBarHeight": 40}],
        "accessibilityTrusted": true, "listedInAccessibility": false, "visibilityService": "silent",
        "loginItem": "notFound", "bundles": {"/p": "b"},
        "applications": [{"bundleIdentifier": "org.example.a", "name": "A", "processIdentifier": 7,
            "policy": "background", "accessibility": "none", "latency": 0.5, "responding": false,
            "extras": "empty", "icon": "i",
            "menuBar": [{"title": "F", "items": [{"title": "N", "identifier": "n", "key": "k",
                "modifiers": ["control", "shift"], "mark": "✓", "enabled": false, "role": "AXCheckBox"},
                {"key": "q"}]}],
            "statusItems": [{"autosaveName": "s", "identifier": "id", "title": "t", "description": "d", "help": "h",
                "width": 28.5, "preferredPosition": 0, "opens": "panel", "enabled": false, "fixed": true,
                "actions": [], "nesting": 3, "accessible": false, "symbol": "y"}]}],
        "defaults": {"d": {"k": [1, {"x": true}]}, "byHost": {"g": {"n": 16}}}})",
                                          "mac.json");
    ASSERT_TRUE(desktop) << desktop.error();
    DesktopFile expected;
    expected.macOS = {27, 3};
    expected.screens = {{.frame = {0, 0, 800, 600}, .scale = 1, .menuBarHeight = 40}};
    expected.accessibilityTrusted = true;
    expected.visibilityService = VisibilityService::Silent;
    expected.loginItem = LoginItemAnswer::NotFound;
    expected.bundles = {{"/p", "b"}};
    expected.defaults = {{"d", {{"k", json::parse(R"([1, {"x": true}])")}}}};
    expected.byHostDefaults = {{"g", {{"n", 16}}}};
    MenuItemSpec file{.title = "F"};
    file.items = {{.title = "N",
                   .identifier = "n",
                   .key = "k",
                   .modifiers = {Modifier::Control, Modifier::Shift},
                   .mark = "✓",
                   .enabled = false,
                   .role = "AXCheckBox"},
                  {.key = "q", .modifiers = {Modifier::Command}}};
    StatusItemSpec item{.autosaveName = "s",
                        .identifier = "id",
                        .title = "t",
                        .description = "d",
                        .help = "h",
                        .width = 28.5,
                        .preferredPosition = 0,
                        .opens = Opens::Panel,
                        .enabled = false,
                        .movable = false,
                        .fixed = true,
                        .actions = {},
                        .nesting = 3,
                        .accessible = false,
                        .symbol = "y"};
    expected.applications = {{.bundleIdentifier = "org.example.a",
                              .name = "A",
                              .processIdentifier = 7,
                              .policy = Policy::Background,
                              .menuBar = {file},
                              .statusItems = {item},
                              .accessibility = AccessibilitySupport::None,
                              .latencySeconds = 0.5,
                              .responding = false,
                              .extras = ExtrasBar::Empty,
                              .icon = "i"}};
    EXPECT_EQ(*desktop, expected);
}

TEST(Uncertainties, eachSettingIsItsOwnAndStartsAtItsFirstValue) {
    const std::string doc = contentsOf(TAVRIN_SOURCE_DIR "/docs/desktop-files.md");
    for (const UncertaintySetting& setting : uncertaintySettings) {
        EXPECT_EQ(setting.valueIn(Uncertainties{}), setting.values[0]);
        std::string documented;
        for (std::size_t value = 0; value < setting.values.size(); ++value) {
            const json chosen{{std::string(setting.name), std::string(setting.values[value])}};
            const auto model = parseUncertainties(chosen, "/model", {});
            ASSERT_TRUE(model) << model.error();
            for (const UncertaintySetting& other : uncertaintySettings)
                EXPECT_EQ(other.chosen(*model), other.name == setting.name ? value : 0U) << setting.name;
            documented += (value == 0 ? "`" : ", `") + std::string(setting.values[value]) + "`";
        }
        EXPECT_NE(doc.find("| `" + std::string(setting.name) + "` | " + documented + " |"), doc.npos)
            << setting.name << " is not documented";
    }
}

TEST(DesktopFiles, theShippedOnesLoadAndAreCrowded) {
    const std::pair<const char*, std::size_t> files[] = {{"notched-laptop", 20},
                                                         {"classic-display", 20},
                                                         {"two-displays", 20},
                                                         {"macos-27", 15},
                                                         {"macos-27-plain", 15}};
    for (const auto& [name, itemsAtLeast] : files) {
        const auto desktop =
            loadDesktopFile(TAVRIN_SOURCE_DIR "/simulator/desktops/" + std::string(name) + ".json");
        ASSERT_TRUE(desktop) << desktop.error();
        std::size_t items = 0;
        for (const ApplicationSpec& application : desktop->applications)
            items += application.statusItems.size();
        EXPECT_GE(items, itemsAtLeast) << name;
    }
}

/// People notice a notch mostly because items get lost behind it, so the file must show that.
TEST(DesktopFiles, theNotchedLaptopReachesPastItsNotch) {
    const auto desktop = loadDesktopFile(TAVRIN_SOURCE_DIR "/simulator/desktops/notched-laptop.json");
    ASSERT_TRUE(desktop) << desktop.error();
    double width = 0;
    for (const ApplicationSpec& application : desktop->applications)
        for (const StatusItemSpec& item : application.statusItems) width += item.width;
    const ScreenSpec& screen = desktop->screens.front();
    EXPECT_LT(screen.frame.maxX() - width, screen.leftMenuBarArea->maxX());
    EXPECT_FALSE(desktop->accessibilityTrusted);
}

TEST(DesktopFiles, theExamplesOfTheDocumentLoad) {
    const std::string doc = contentsOf(TAVRIN_SOURCE_DIR "/docs/desktop-files.md");
    const std::string_view open = "```json\n", close = "\n```";
    int examples = 0;
    for (std::size_t at = doc.find(open); at != doc.npos; at = doc.find(open, at)) {
        at += open.size();
        const auto desktop = parseDesktopFile(doc.substr(at, doc.find(close, at) - at), "example");
        EXPECT_TRUE(desktop) << desktop.error();
        ++examples;
    }
    EXPECT_GE(examples, 2);
}

} // namespace
} // namespace mac_model
