#pragma once

#include "platform/hot_keys.h"
#include "shortcuts/hot_key_shortcut.h"

#include <array>
#include <vector>

namespace tavrin {

/// The shortcuts that macOS and ordinary applications use.
namespace SystemShortcuts {

/// The system's own shortcuts that are switched on.
std::vector<HotKeyShortcut> enabledSymbolicHotKeys(const HotKeys& hotKeys);

/// Command with Q, W, C, V, X, Z, A, S, N, O, P, T, F, H, M, comma, Tab and Space, and Shift-Command-Z.
extern const std::array<HotKeyShortcut, 19> standardApp;

} // namespace SystemShortcuts

} // namespace tavrin
