#pragma once

#include "platform/keyboard.h"
#include "vocabulary/vocabulary.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace mac_model {

/// Which character each key makes. None is an input method without a layout of its own; its keys have the
/// names of the US layout.
enum class KeyboardLayout { Us, German, French, None };
inline constexpr std::array<std::string_view, 4> keyboardLayoutNames{"us", "german", "french", "none"};

/// The character that a key makes without modifiers; empty when it makes none.
std::string characterOn(KeyboardLayout, KeyCode);

/// The key that makes this character without modifiers, or that has this name: "return", "f5". None when the
/// keyboard has no such key.
std::optional<KeyCode> keyCodeOn(KeyboardLayout, std::string_view key);

/// Whether it is the name of a key that makes no character: "return", "escape", "f5".
bool isNamedKey(std::string_view key);
/// All these names with commas between them, for messages.
std::string namesOfKeys();

} // namespace mac_model
