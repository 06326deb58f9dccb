#pragma once

#include "desktop/desktop_file.h"
#include "desktop/object_reader.h"
#include "vocabulary/vocabulary.h"

namespace mac_model {

inline constexpr std::size_t hotKeysMax = 1000;

// Readers of a desktop file's parts, each from its JSON value. They note errors in `FirstFault`; a value
// returned after a fault has no meaning.

ApplicationSpec readApplication(const nlohmann::json&, const std::string& pointer, FirstFault&);
/// The list under "modifiers".
std::vector<Modifier> readModifiers(ObjectReader& owner);
std::vector<MenuItemSpec> readMenu(ObjectReader& owner, std::string_view key);
std::vector<ScreenSpec> readScreens(const nlohmann::json&, const std::string& pointer, MacOSVersion,
                                    FirstFault&);
Uncertainties readUncertainties(const nlohmann::json&, const std::string& pointer, Uncertainties,
                                FirstFault&);

TakenHotKey readTakenHotKey(const nlohmann::json&, const std::string& pointer, KeyboardLayout, FirstFault&);
/// An array of entries.
std::vector<SymbolicHotKey> readSymbolicHotKeys(const nlohmann::json&, const std::string& pointer,
                                                FirstFault&);

struct StoredPreferences {
    PreferenceDomains ordinary;
    PreferenceDomains byHost;
};

StoredPreferences readPreferences(const nlohmann::json&, const std::string& pointer, FirstFault&);

} // namespace mac_model
