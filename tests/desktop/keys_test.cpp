#include "desktop/desktop_loader.h"

#include <gtest/gtest.h>

namespace mac_model {
namespace {

using nlohmann::json;

std::string errorOf(const json& keys) {
    json file{{"macOS", {{"major", 26}}},
              {"screens", {{{"frame", {0, 0, 1920, 1080}}}}},
              {"applications", json::array()}};
    file.update(keys);
    const auto desktop = parseDesktopFile(file.dump(), "mac.json");
    return desktop ? "accepted" : desktop.error();
}

TEST(KeyboardLayouts, findTheKeyThatMakesACharacter) {
    struct Case {
        KeyboardLayout layout;
        std::string key;
        std::optional<tavrin::KeyCode> code;
    };
    using enum KeyboardLayout;
    for (const auto& c : std::vector<Case>{{Us, "z", 6},
                                           {German, "z", 16},
                                           {German, "y", 6},
                                           {French, "a", 12},
                                           {French, ",", 46},
                                           {French, "1", 83}, // the keypad's: the row of digits makes others
                                           {Us, "1", 18},
                                           {German, "ß", 27},
                                           {Us, "ß", std::nullopt},
                                           {German, ";", std::nullopt},
                                           {None, "z", 6},
                                           {French, "escape", 53},
                                           {Us, "f20", 90},
                                           {Us, "f21", std::nullopt},
                                           {Us, "", std::nullopt}})
        EXPECT_EQ(keyCodeOn(c.layout, c.key), c.code) << c.key;
    for (const auto layout : {Us, German, French})
        for (tavrin::KeyCode code = 0; code < 130; ++code)
            if (const auto made = characterOn(layout, code); !made.empty() && code < 65)
                EXPECT_EQ(keyCodeOn(layout, made), code) << made;
}

TEST(DesktopLoader, saysWhatIsWrongWithKeys) {
    const auto taken = [](json key) { return json{{"hotKeysTaken", {std::move(key)}}}; };
    const auto symbolic = [](json key) { return json{{"symbolicHotKeys", {std::move(key)}}}; };
    EXPECT_EQ(errorOf({{"keyboardLayout", "german"},
                       {"hotKeysTaken", {{{"key", "ß"}, {"modifiers", {"command"}}}, {{"keyCode", 4}}}},
                       {"symbolicHotKeys",
                        {json::object(), {{"code", 65535}, {"modifiers", 4352}, {"enabled", false}}}}}),
              "accepted");
    const std::vector<std::pair<json, std::string>> cases{
        {{{"keyboardLayout", "dvorak"}}, "/keyboardLayout: must be "},
        {taken({{"key", "ß"}}), "/hotKeysTaken/0/key: must be a key of the keyboard's layout"},
        {taken(json::object()), "/hotKeysTaken/0/key: is missing"},
        {taken({{"key", "a"}, {"keyCode", 0}}), "/hotKeysTaken/0/key: is too much beside"},
        {taken({{"keyCode", -1}}), "/hotKeysTaken/0/keyCode: must be "},
        {taken({{"key", "a"}, {"modifiers", {"meta"}}}), "/hotKeysTaken/0/modifiers/0: must be "},
        {taken({{"key", "a"}, {"exclusive", 1}}), "/hotKeysTaken/0/exclusive: must be "},
        {taken("a"), "/hotKeysTaken/0: must be an object"},
        {{{"symbolicHotKeys", json::object()}}, "/symbolicHotKeys: must be a list"},
        {symbolic({{"code", 4.5}}), "/symbolicHotKeys/0/code: must be "},
        {symbolic({{"enabled", "yes"}}), "/symbolicHotKeys/0/enabled: must be "},
        {symbolic({{"key", "a"}}), "/symbolicHotKeys/0/key: is not a key that belongs here"},
    };
    for (const auto& [keys, expected] : cases) {
        const auto error = errorOf(keys);
        EXPECT_TRUE(error.starts_with("mac.json: " + expected)) << error;
    }
}

} // namespace
} // namespace mac_model
