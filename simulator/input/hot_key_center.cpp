#include "input/hot_key_center.h"

#include "input/keyboard_model.h"

#include <algorithm>
#include <utility>

namespace mac_model {

namespace {

ModifierFlags flagsOf(tavrin::CarbonModifiers modifiers) {
    ModifierFlags flags = 0;
    if (modifiers & tavrin::carbonCommandKey) flags |= tavrin::commandKeyFlag;
    if (modifiers & tavrin::carbonShiftKey) flags |= tavrin::shiftKeyFlag;
    if (modifiers & tavrin::carbonOptionKey) flags |= tavrin::optionKeyFlag;
    if (modifiers & tavrin::carbonControlKey) flags |= tavrin::controlKeyFlag;
    return flags;
}

KeyPress keyOf(const TakenHotKey& taken) { return {taken.keyCode, flagsOf(taken.modifiers)}; }

} // namespace

HotKeyCenter::HotKeyCenter(const DesktopFile& desktop) : symbolicHotKeys(desktop.symbolicHotKeys) {
    for (const auto& taken : desktop.hotKeysTaken) set(taken);
}

std::expected<HotKeyCenter::Registration, tavrin::HotKeys::Error>
HotKeyCenter::add(KeyCode code, tavrin::CarbonModifiers modifiers, std::function<void()> onPress) {
    const KeyPress key{code, flagsOf(modifiers)};
    const bool isHeld = std::ranges::find(held_, key, &Held::key) != held_.end();
    const bool isRefused = std::ranges::any_of(
        taken_, [&](const TakenHotKey& other) { return other.isExclusive && keyOf(other) == key; });
    if (isHeld || isRefused) return std::unexpected(tavrin::HotKeys::existsError);
    const Registration registration{nextRegistration_++};
    held_.push_back({registration, key, std::move(onPress)});
    return registration;
}

void HotKeyCenter::remove(Registration registration) {
    std::erase_if(held_, [&](const Held& held) { return held.registration == registration; });
}

void HotKeyCenter::set(const TakenHotKey& key) {
    std::erase_if(taken_, [&](const TakenHotKey& other) { return keyOf(other) == keyOf(key); });
    if (key.isTaken) taken_.push_back(key);
}

bool HotKeyCenter::press(const KeyPress& key) {
    const auto other = std::ranges::find(taken_, key, keyOf);
    bool isTaken = other != taken_.end() && other->stopsPresses;
    const auto held = held_;
    for (const auto& registered : held) {
        if (registered.key != key) continue;
        registered.onPress();
        isTaken = true;
    }
    return isTaken;
}

} // namespace mac_model
