#pragma once

#include <string>
#include <vector>

namespace tavrin {

/// What macOS may show in the menu bar. Whatever isn't on the lists is hidden.
struct NativeVisibilityPlan {
    std::vector<std::string> allowedBundleIdentifiers; // ascending
    std::vector<int> allowedSystemItems;               // ascending; see MenuBarSystemItem

    bool operator==(const NativeVisibilityPlan&) const = default;
};

} // namespace tavrin
