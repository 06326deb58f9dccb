#include "terminal/prompt_line.h"

#include "desktop/strict_json.h"

#include <array>
#include <charconv>
#include <optional>
#include <vector>

namespace mac_model {

namespace {

using nlohmann::json;
using Parsed = std::expected<json, std::string>;

std::string_view trimmed(std::string_view text) {
    const auto begin = text.find_first_not_of(" \t\r");
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(" \t\r") - begin + 1);
}

std::vector<std::string> partsOf(std::string_view text, char separator) {
    std::vector<std::string> parts;
    while (!text.empty()) {
        const auto end = text.find(separator);
        if (const auto part = trimmed(text.substr(0, end)); !part.empty()) parts.emplace_back(part);
        text = end == std::string_view::npos ? std::string_view{} : text.substr(end + 1);
    }
    return parts;
}

std::optional<double> numberIn(std::string_view text) {
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc{} && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

std::optional<json> pointIn(std::string_view text) {
    const auto parts = partsOf(text, ' ');
    if (parts.size() != 2) return std::nullopt;
    const auto x = numberIn(parts[0]);
    const auto y = numberIn(parts[1]);
    return x && y ? std::optional(json{*x, *y}) : std::nullopt;
}

Parsed clickOn(std::string_view rest, std::string_view button) {
    if (rest.empty()) return std::unexpected("Say what to click: a text, or x and y.");
    json command{{"do", "click"}, {"button", button}};
    if (const auto point = pointIn(rest))
        command["at"] = *point;
    else
        command["text"] = rest;
    return command;
}

Parsed click(std::string_view rest) { return clickOn(rest, "left"); }

Parsed rightClick(std::string_view rest) { return clickOn(rest, "right"); }

Parsed press(std::string_view rest) { return json{{"do", "press"}, {"text", rest}}; }

Parsed move(std::string_view rest) {
    const auto point = pointIn(rest);
    if (!point) return std::unexpected("Say where to: move X Y.");
    return json{{"do", "move"}, {"at", *point}};
}

Parsed menu(std::string_view rest) { return json{{"do", "menu"}, {"path", partsOf(rest, '>')}}; }

/// "Row > Section", or "Row > Action".
Parsed pairOf(std::string_view command, std::string_view rest, std::string_view second) {
    const auto parts = partsOf(rest, '>');
    if (parts.size() != 2) return std::unexpected("Say two names with > between them.");
    return json{{"do", command}, {"text", parts[0]}, {second, parts[1]}};
}

Parsed drag(std::string_view rest) { return pairOf("drag", rest, "onto"); }

Parsed perform(std::string_view rest) { return pairOf("perform", rest, "action"); }

Parsed wait(std::string_view rest) {
    const auto seconds = numberIn(rest);
    if (!seconds) return std::unexpected("Say how many seconds to wait.");
    return json{{"do", "wait"}, {"seconds", *seconds}};
}

Parsed key(std::string_view rest) {
    auto parts = partsOf(rest, '+');
    if (parts.empty()) return std::unexpected("Say which key, such as command+q.");
    json command{{"do", "key"}, {"key", parts.back()}};
    parts.pop_back();
    if (!parts.empty()) command["modifiers"] = parts;
    return command;
}

Parsed scroll(std::string_view rest) {
    const auto points = numberIn(rest);
    if (!points) return std::unexpected("Say how many points to scroll.");
    return json{{"do", "scroll"}, {"dy", *points}};
}

Parsed set(std::string_view rest) {
    const auto end = rest.find(' ');
    if (end == std::string_view::npos)
        return std::unexpected("Say what to set and to what, such as: set trusted true");
    const auto given = trimmed(rest.substr(end));
    const auto value = parseStrictJson(given);
    return json{{"do", "set"}, {std::string(rest.substr(0, end)), value ? *value : json(given)}};
}

Parsed defaults(std::string_view rest) {
    json command{{"do", "defaults"}};
    if (!rest.empty()) command["domain"] = rest;
    return command;
}

struct ShortForm {
    std::string_view name;
    Parsed (*parse)(std::string_view rest);
};

constexpr std::array shortForms{
    ShortForm{"click", click},       ShortForm{"right", rightClick}, ShortForm{"press", press},
    ShortForm{"menu", menu},         ShortForm{"move", move},        ShortForm{"wait", wait},
    ShortForm{"key", key},           ShortForm{"scroll", scroll},    ShortForm{"set", set},
    ShortForm{"defaults", defaults}, ShortForm{"drag", drag},        ShortForm{"perform", perform}};
constexpr std::array<std::string_view, 7> bareNames{"look",      "settle", "events", "stats",
                                                    "terminate", "start",  "crash"};

} // namespace

Parsed parsePromptLine(std::string_view line) {
    line = trimmed(line);
    if (line.starts_with('{')) {
        auto command = parseStrictJson(line);
        if (!command) return std::unexpected("That is no JSON command: " + describe(command.error()) + ".");
        return *command;
    }
    const auto end = line.find(' ');
    const auto name = line.substr(0, end);
    const auto rest = end == std::string_view::npos ? std::string_view{} : trimmed(line.substr(end));
    for (const auto& form : shortForms)
        if (form.name == name) return form.parse(rest);
    for (const auto bare : bareNames)
        if (bare == name && rest.empty()) return json{{"do", name}};
    return std::unexpected("There is no command " + inQuotes(line) + "; type help for what there is.");
}

std::string_view promptHelp() {
    return "  click Tavrin        clicks what has this text: a control, a status item, a menu title\n"
           "  click 900 12        clicks there; right clicks with the right button\n"
           "  press Settings…     clicks the one enabled control of that text\n"
           "  menu Tavrin > Quit Tavrin\n"
           "                      opens a menu and chooses down the path\n"
           "  drag Notes > Shown  drags a row onto a section\n"
           "  perform Notes > Move to Shown\n"
           "                      does a named action of a row or control\n"
           "  move 900 12         moves the pointer; scroll -40 scrolls under it\n"
           "  key command+q       presses a key\n"
           "  wait 2              lets two seconds pass; settle lets time pass until nothing is pending\n"
           "  set trusted false   changes the world\n"
           "  look                everything on the screen as JSON; defaults, events, stats likewise\n"
           "  terminate, start, crash\n"
           "                      quits, launches and kills the program\n"
           "  {\"do\": …}           any command of the driving protocol (docs/driving.md)\n"
           "  exit                leaves\n";
}

} // namespace mac_model
