#include "pins/store/pinned_action_document.h"

#include "base/base64.h"
#include "base/json_value.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>
#include <string_view>

namespace tavrin::PinnedActionDocument {

namespace {

constexpr std::array<std::string_view, 2> originNames{"statusItem", "appMenuBar"};

// Reading. A read value is taken out of the JSON, not copied: icons are large.

struct StoredHotKey {
    std::int64_t keyCode = 0;
    std::int64_t modifiers = 0;
};

/// Of several members with the name the first counts, as for Foundation's decoder.
JsonValue* member(JsonValue& object, std::string_view name) {
    auto* members = std::get_if<JsonValue::Object>(&object.value);
    if (!members) return nullptr;
    const auto found = std::ranges::find(*members, name, &JsonMember::name);
    return found == members->end() ? nullptr : &found->value;
}

template <class Part>
bool take(JsonValue& json, Part& into) {
    auto* part = std::get_if<Part>(&json.value);
    if (part) into = std::move(*part);
    return part != nullptr;
}

bool read(JsonValue& json, std::string& into) { return take(json, into); }

bool read(JsonValue& json, bool& into) { return take(json, into); }

bool read(JsonValue& json, std::int64_t& into) { return take(json, into); }

bool read(JsonValue& json, Uuid& into) {
    const auto* text = std::get_if<std::string>(&json.value);
    const auto uuid = text ? Uuid::from(*text) : std::nullopt;
    if (uuid) into = *uuid;
    return uuid.has_value();
}

bool read(JsonValue& json, std::vector<std::byte>& into) {
    const auto* text = std::get_if<std::string>(&json.value);
    auto bytes = text ? bytesFromBase64(*text) : std::nullopt;
    if (bytes) into = std::move(*bytes);
    return bytes.has_value();
}

bool read(JsonValue& json, PinnedMenuOrigin& into) {
    const auto* name = std::get_if<std::string>(&json.value);
    const auto place = name ? std::ranges::find(originNames, *name) : originNames.end();
    into = static_cast<PinnedMenuOrigin>(place - originNames.begin());
    return place != originNames.end();
}

bool read(JsonValue& json, StoredHotKey& into);
bool read(JsonValue& json, PinnedStatusItemReference& into);
bool read(JsonValue& json, PinnedMenuStep& into);
bool read(JsonValue& json, PinnedAction& into);

template <class Element>
bool read(JsonValue& json, std::vector<Element>& into) {
    auto* array = std::get_if<JsonValue::Array>(&json.value);
    return array && std::ranges::all_of(
                        *array, [&](JsonValue& element) { return read(element, into.emplace_back()); });
}

template <class Value>
bool required(JsonValue& object, std::string_view name, Value& into) {
    auto* value = member(object, name);
    return value && read(*value, into);
}

template <class Value>
bool optional(JsonValue& object, std::string_view name, std::optional<Value>& into) {
    auto* value = member(object, name);
    if (!value || std::holds_alternative<std::nullptr_t>(value->value)) return true;
    return read(*value, into.emplace());
}

bool read(JsonValue& json, StoredHotKey& into) {
    return required(json, "keyCode", into.keyCode) && required(json, "modifiers", into.modifiers) &&
           into.keyCode >= 0 && into.keyCode <= std::numeric_limits<KeyCode>::max() && into.modifiers >= 0;
}

bool read(JsonValue& json, PinnedStatusItemReference& into) {
    return optional(json, "identifier", into.identifier) && optional(json, "label", into.label) &&
           required(json, "index", into.index);
}

bool read(JsonValue& json, PinnedMenuStep& into) {
    return required(json, "title", into.title) && optional(json, "identifier", into.identifier);
}

bool readHotKey(JsonValue& pin, std::optional<HotKeyShortcut>& into) {
    std::optional<StoredHotKey> stored;
    if (!optional(pin, "hotKey", stored)) return false;
    if (stored)
        into.emplace(static_cast<KeyCode>(stored->keyCode), static_cast<ModifierFlags>(stored->modifiers));
    return true;
}

bool read(JsonValue& json, PinnedAction& into) {
    return required(json, "id", into.id) && required(json, "name", into.name) &&
           required(json, "bundleIdentifier", into.bundleIdentifier) &&
           required(json, "applicationName", into.applicationName) &&
           required(json, "statusItem", into.statusItem) && required(json, "path", into.path) &&
           required(json, "hasConfirmedFirstRun", into.hasConfirmedFirstRun) &&
           optional(json, "lastFailure", into.lastFailure) && optional(json, "iconPNG", into.iconPng) &&
           readHotKey(json, into.hotKey) && optional(json, "menuOrigin", into.menuOrigin);
}

// Writing, with the members in the order of the fields.

class Writer;
void write(Writer& writer, const PinnedStatusItemReference& item);
void write(Writer& writer, const PinnedMenuStep& step);
void write(Writer& writer, const HotKeyShortcut& hotKey);
void write(Writer& writer, const PinnedAction& pin);

class Writer {
  public:
    std::string json;

    template <class Value>
    void member(std::string_view name, const Value& value) {
        if (json.back() != '{') json += ',';
        appendJsonString(json, name);
        json += ':';
        put(value);
    }

    template <class Value>
    void member(std::string_view name, const std::optional<Value>& value) {
        if (value) member(name, *value);
    }

    void put(std::string_view text) { appendJsonString(json, text); }

    void put(const std::string& text) { appendJsonString(json, text); }

    void put(bool flag) { json += flag ? "true" : "false"; }

    void put(std::int64_t number) { json += std::to_string(number); }

    void put(const Uuid& uuid) { put(uuid.text()); }

    void put(const std::vector<std::byte>& bytes) { put(base64From(bytes)); }

    void put(PinnedMenuOrigin origin) { put(originNames.at(static_cast<std::size_t>(origin))); }

    template <class Element>
    void put(std::span<const Element> elements) {
        json += '[';
        for (const auto& element : elements) {
            if (&element != &elements.front()) json += ',';
            put(element);
        }
        json += ']';
    }

    template <class Object>
    void put(const Object& object) {
        json += '{';
        write(*this, object);
        json += '}';
    }
};

void write(Writer& writer, const PinnedStatusItemReference& item) {
    writer.member("identifier", item.identifier);
    writer.member("label", item.label);
    writer.member("index", item.index);
}

void write(Writer& writer, const PinnedMenuStep& step) {
    writer.member("title", step.title);
    writer.member("identifier", step.identifier);
}

void write(Writer& writer, const HotKeyShortcut& hotKey) {
    writer.member("keyCode", static_cast<std::int64_t>(hotKey.keyCode()));
    writer.member("modifiers", static_cast<std::int64_t>(hotKey.modifierFlags()));
}

void write(Writer& writer, const PinnedAction& pin) {
    writer.member("id", pin.id);
    writer.member("name", pin.name);
    writer.member("bundleIdentifier", pin.bundleIdentifier);
    writer.member("applicationName", pin.applicationName);
    writer.member("statusItem", pin.statusItem);
    writer.member("path", std::span(pin.path));
    writer.member("hasConfirmedFirstRun", pin.hasConfirmedFirstRun);
    writer.member("lastFailure", pin.lastFailure);
    writer.member("iconPNG", pin.iconPng);
    writer.member("hotKey", pin.hotKey);
    writer.member("menuOrigin", pin.menuOrigin);
}

/// About what the pins take as text, in bytes.
std::size_t roomFor(std::span<const PinnedAction> pins) {
    constexpr std::size_t roomForTexts = 1000;
    std::size_t room = roomForTexts;
    for (const auto& pin : pins) room += roomForTexts + (pin.iconPng ? pin.iconPng->size() * 3 / 2 : 0);
    return room;
}

} // namespace

std::optional<std::vector<PinnedAction>> decode(std::span<const std::byte> document) {
    auto json = parseJson({reinterpret_cast<const char*>(document.data()), document.size()});
    std::int64_t stored = 0;
    std::vector<PinnedAction> pins;
    const bool isRead =
        json && required(*json, "version", stored) && stored <= version && required(*json, "pins", pins);
    return isRead ? std::optional(std::move(pins)) : std::nullopt;
}

std::vector<std::byte> encode(std::span<const PinnedAction> pins) {
    Writer writer;
    writer.json.reserve(roomFor(pins));
    writer.json = "{";
    writer.member("version", version);
    writer.member("pins", pins);
    writer.json += '}';
    const auto bytes = std::as_bytes(std::span(writer.json));
    return {bytes.begin(), bytes.end()};
}

} // namespace tavrin::PinnedActionDocument
