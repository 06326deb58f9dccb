#include "desktop/keyboard_layout.h"

#include <algorithm>
#include <span>

namespace mac_model {

namespace {

struct Key {
    KeyCode code;
    std::string_view name;
};

constexpr std::array namedKeys{
    Key{36, "return"},
    Key{53, "escape"},
    Key{126, "up"},
    Key{125, "down"},
    Key{123, "left"},
    Key{124, "right"},
    Key{49, "space"},
    Key{48, "tab"},
    Key{51, "delete"},
    Key{115, "home"},
    Key{117, "forwardDelete"},
    Key{119, "end"},
    Key{116, "pageUp"},
    Key{121, "pageDown"},
    Key{122, "f1"},
    Key{120, "f2"},
    Key{99, "f3"},
    Key{118, "f4"},
    Key{96, "f5"},
    Key{97, "f6"},
    Key{98, "f7"},
    Key{100, "f8"},
    Key{101, "f9"},
    Key{109, "f10"},
    Key{103, "f11"},
    Key{111, "f12"},
    Key{105, "f13"},
    Key{107, "f14"},
    Key{113, "f15"},
    Key{106, "f16"},
    Key{64, "f17"},
    Key{79, "f18"},
    Key{80, "f19"},
    Key{90, "f20"},
    Key{76, "keypadEnter"},
    Key{71, "clear"},
    Key{114, "help"},
};

/// The keypad comes last, so that a character is looked for on the other keys first. Some of its keys, and
/// Help and the menu key, make control characters, as UCKeyTranslate tells them.
constexpr std::array usKeys{
    Key{0, "a"},      Key{1, "s"},      Key{2, "d"},  Key{3, "f"},  Key{4, "h"},     Key{5, "g"},
    Key{6, "z"},      Key{7, "x"},      Key{8, "c"},  Key{9, "v"},  Key{10, "§"},    Key{11, "b"},
    Key{12, "q"},     Key{13, "w"},     Key{14, "e"}, Key{15, "r"}, Key{16, "y"},    Key{17, "t"},
    Key{18, "1"},     Key{19, "2"},     Key{20, "3"}, Key{21, "4"}, Key{22, "6"},    Key{23, "5"},
    Key{24, "="},     Key{25, "9"},     Key{26, "7"}, Key{27, "-"}, Key{28, "8"},    Key{29, "0"},
    Key{30, "]"},     Key{31, "o"},     Key{32, "u"}, Key{33, "["}, Key{34, "i"},    Key{35, "p"},
    Key{37, "l"},     Key{38, "j"},     Key{39, "'"}, Key{40, "k"}, Key{41, ";"},    Key{42, "\\"},
    Key{43, ","},     Key{44, "/"},     Key{45, "n"}, Key{46, "m"}, Key{47, "."},    Key{50, "`"},
    Key{65, "."},     Key{67, "*"},     Key{69, "+"}, Key{75, "/"}, Key{78, "-"},    Key{81, "="},
    Key{82, "0"},     Key{83, "1"},     Key{84, "2"}, Key{85, "3"}, Key{86, "4"},    Key{87, "5"},
    Key{88, "6"},     Key{89, "7"},     Key{91, "8"}, Key{92, "9"}, Key{71, "\x1B"}, Key{76, "\x03"},
    Key{110, "\x10"}, Key{114, "\x05"},
};

// The keys on which the other layouts differ from the US layout.
constexpr std::array germanKeys{Key{6, "y"},  Key{10, "^"}, Key{16, "z"}, Key{24, "´"}, Key{27, "ß"},
                                Key{30, "+"}, Key{33, "ü"}, Key{39, "ä"}, Key{41, "ö"}, Key{42, "#"},
                                Key{44, "-"}, Key{50, "<"}, Key{65, ","}};
constexpr std::array frenchKeys{
    Key{0, "q"},   Key{6, "w"},  Key{10, "@"}, Key{12, "a"}, Key{13, "z"}, Key{18, "&"}, Key{19, "é"},
    Key{20, "\""}, Key{21, "'"}, Key{22, "§"}, Key{23, "("}, Key{24, "-"}, Key{25, "ç"}, Key{26, "è"},
    Key{27, ")"},  Key{28, "!"}, Key{29, "à"}, Key{30, "$"}, Key{33, "^"}, Key{39, "ù"}, Key{41, "m"},
    Key{42, "`"},  Key{43, ";"}, Key{44, "="}, Key{46, ","}, Key{47, ":"}, Key{50, "<"}, Key{65, ","}};

std::span<const Key> differencesOf(KeyboardLayout layout) {
    if (layout == KeyboardLayout::German) return germanKeys;
    if (layout == KeyboardLayout::French) return frenchKeys;
    return {};
}

/// Empty when the key makes no character.
std::string_view characterOf(KeyboardLayout layout, KeyCode code) {
    for (const auto keys : {differencesOf(layout), std::span<const Key>(usKeys)}) {
        const auto found = std::ranges::find(keys, code, &Key::code);
        if (found != keys.end()) return found->name;
    }
    return {};
}

} // namespace

std::string characterOn(KeyboardLayout layout, KeyCode code) {
    return layout == KeyboardLayout::None ? std::string{} : std::string(characterOf(layout, code));
}

std::optional<KeyCode> keyCodeOn(KeyboardLayout layout, std::string_view key) {
    const auto named = std::ranges::find(namedKeys, key, &Key::name);
    if (named != namedKeys.end()) return named->code;
    const auto found =
        std::ranges::find_if(usKeys, [&](const Key& us) { return characterOf(layout, us.code) == key; });
    return found == usKeys.end() ? std::nullopt : std::optional(found->code);
}

bool isNamedKey(std::string_view key) {
    return std::ranges::find(namedKeys, key, &Key::name) != namedKeys.end();
}

std::string namesOfKeys() {
    std::string names;
    for (const auto& key : namedKeys) names += (names.empty() ? "" : ", ") + std::string(key.name);
    return names;
}

} // namespace mac_model
