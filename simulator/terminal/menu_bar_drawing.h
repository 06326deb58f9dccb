#pragma once

#include <cstddef>
#include <nlohmann/json_fwd.hpp>
#include <string>

namespace mac_model {

/// Draws the menu bar that the reply to "look" tells of, as one line of text for a terminal and a second one
/// that counts the items that aren't drawn: the application's menus at the left, the notch as ▓▓▓, the items
/// at the right by short names. Longer lists of items make a line longer than `columns`.
std::string drawMenuBar(const nlohmann::json& look, std::size_t columns = 118);

} // namespace mac_model
