#pragma once

#include "base/ascii.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace tavrin {

/// An item identifier in the form in which identifiers are compared. The bundle part, before the first "::",
/// has no letter case; neither has the rest for Control Center, whose items are known by catalogue names.
inline std::string comparableItemIdentifier(std::string_view identifier) {
    const auto bundleEnd = std::min(identifier.find("::"), identifier.size());
    const auto bundle = lowercasedAscii(identifier.substr(0, bundleEnd));
    const auto rest = identifier.substr(bundleEnd);
    return bundle + (bundle == "com.apple.controlcenter" ? lowercasedAscii(rest) : std::string(rest));
}

} // namespace tavrin
