#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace mac_model {

/// The icon of an application on this Mac: a tile in a colour of its own, as the page draws it, with a mark
/// that stands for the first letter of its name. A PNG of 32 × 32 pixels for 16 × 16 points, the same bytes
/// for the same application.
std::vector<std::byte> applicationIconPng(std::string_view bundleIdentifier, std::string_view name);

} // namespace mac_model
