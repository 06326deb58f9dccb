#include "desktop/desktop_readers.h"
#include "vocabulary/vocabulary.h"

namespace mac_model {

namespace {

constexpr NumberRange keyCodes{0, 65'535};
constexpr NumberRange carbonModifiers{0, 65'535};

/// A key is given by its code or by its name on the layout.
KeyCode readKeyCode(ObjectReader& reader, KeyboardLayout layout) {
    const auto code = reader.integer("keyCode", keyCodes);
    const auto name = reader.text("key", code ? Need::Optional : Need::Required);
    if (code && !name.empty()) reader.refuse("key", "is too much beside \"keyCode\"");
    if (code || name.empty()) return static_cast<KeyCode>(code.value_or(0));
    const auto found = keyCodeOn(layout, name);
    if (!found) reader.refuse("key", "must be a key of the keyboard's layout, or one of " + namesOfKeys());
    return found.value_or(0);
}

SymbolicHotKey readSymbolicHotKey(const nlohmann::json& value, const std::string& pointer,
                                  FirstFault& faults) {
    ObjectReader reader(value, pointer, faults);
    SymbolicHotKey key;
    if (const auto code = reader.integer("code", keyCodes)) key.code = *code;
    if (const auto modifiers = reader.integer("modifiers", carbonModifiers)) key.modifiers = *modifiers;
    if (reader.has("enabled")) key.isEnabled = reader.flag("enabled", false);
    reader.refuseOthers();
    return key;
}

} // namespace

TakenHotKey readTakenHotKey(const nlohmann::json& value, const std::string& pointer, KeyboardLayout layout,
                            FirstFault& faults) {
    ObjectReader reader(value, pointer, faults);
    TakenHotKey taken;
    taken.keyCode = readKeyCode(reader, layout);
    taken.modifiers = readModifiers(reader);
    taken.isTaken = reader.flag("taken", taken.isTaken);
    taken.isExclusive = reader.flag("exclusive", taken.isExclusive);
    taken.stopsPresses = reader.flag("stopsPresses", taken.stopsPresses);
    reader.refuseOthers();
    return taken;
}

std::vector<SymbolicHotKey> readSymbolicHotKeys(const nlohmann::json& value, const std::string& pointer,
                                                FirstFault& faults) {
    std::vector<SymbolicHotKey> keys;
    if (!value.is_array() || value.size() > hotKeysMax)
        faults.note(pointer, "must be a list of at most " + std::to_string(hotKeysMax));
    else
        for (const auto& entry : value)
            keys.push_back(readSymbolicHotKey(entry, pointerTo(pointer, keys.size()), faults));
    return keys;
}

std::vector<SymbolicHotKey> usualSymbolicHotKeys() {
    constexpr auto shiftCommand = tavrin::carbonShiftKey | tavrin::carbonCommandKey;
    return {{true, 49, tavrin::carbonCommandKey},
            {true, 20, shiftCommand},
            {true, 21, shiftCommand},
            {true, 23, shiftCommand},
            {true, 126, tavrin::carbonControlKey},
            {true, 125, tavrin::carbonControlKey},
            {true, 123, tavrin::carbonControlKey},
            {true, 124, tavrin::carbonControlKey}};
}

} // namespace mac_model
