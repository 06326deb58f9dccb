#include "shortcuts/toggle_shortcut_store.h"

#include "settings/own_choice.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>

namespace tavrin {

namespace {

constexpr std::int64_t keyCodeMax = 65'535;

const DefaultsValue* member(const DefaultsDictionary& dictionary, const char* name) {
    const auto found = dictionary.find(name);
    return found == dictionary.end() ? nullptr : &found->second;
}

const std::int64_t* integer(const DefaultsDictionary& dictionary, const char* name) {
    const auto* value = member(dictionary, name);
    return value ? std::get_if<std::int64_t>(&value->value) : nullptr;
}

HotKeyShortcut shortcutIn(const DefaultsDictionary& stored) {
    const auto* keyCode = integer(stored, "keyCode");
    const auto* modifiers = integer(stored, "modifiers");
    if (!keyCode || !modifiers || *modifiers < 0) return ToggleShortcutStore::defaultShortcut;
    const auto flags = static_cast<ModifierFlags>(*modifiers);
    if ((flags & HotKeyShortcut::leadingModifiersMask) == 0) return ToggleShortcutStore::defaultShortcut;
    return {static_cast<KeyCode>(std::clamp<std::int64_t>(*keyCode, 0, keyCodeMax)), flags};
}

} // namespace

std::optional<HotKeyShortcut> ToggleShortcutStore::load() const {
    const auto value = defaults_.value(defaults_.ownDomain(), key);
    const auto* stored = value ? std::get_if<DefaultsDictionary>(&value->value) : nullptr;
    if (!stored) return defaultShortcut;
    const auto* enabled = member(*stored, "enabled");
    if (enabled && isFalse(*enabled)) return std::nullopt;
    return shortcutIn(*stored);
}

void ToggleShortcutStore::save(const std::optional<HotKeyShortcut>& shortcut) {
    DefaultsDictionary stored{{"enabled", {shortcut.has_value()}}};
    if (shortcut) {
        stored["keyCode"] = {static_cast<std::int64_t>(shortcut->keyCode())};
        stored["modifiers"] = {static_cast<std::int64_t>(shortcut->modifierFlags())};
    }
    storeOwnChoice(defaults_, key, {std::move(stored)});
}

} // namespace tavrin
