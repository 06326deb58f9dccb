#pragma once

#include "hiding/skerrow_policy.h"
#include "native/policy/native_visibility_plan.h"
#include "platform/screens.h"

#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin {

/// Makes plans of what the user wants hidden. macOS hides all items of an application together, so the
/// hidden set holds bare bundle identifiers here; identifiers of single items, such as an older macOS had,
/// count for their whole application.
namespace NativeVisibilityPolicy {

/// In lower case, with the other owners of the same items.
std::set<std::string> hiddenBundleIdentifiers(const HiddenSet& hidden);

/// Clock and Control Center, which can't be hidden, have none here.
std::set<int> hiddenSystemItemNumbers(const HiddenSet& hidden);

/// The plan while items are hidden.
NativeVisibilityPlan plan(const HiddenSet& hidden, std::span<const std::string> runningBundleIdentifiers,
                          const std::string& ownBundleIdentifier);

/// What the plan of a revealed menu bar is made of.
struct Expanded {
    std::span<const Screen> screens;
    bool isCollapsed = false;
    bool isSuppressed = false;
    HiddenSet rescued{};                             // units, which the tray offers
    std::optional<std::string> temporarilyAllowed{}; // the item that the tray lets through
};

/// None when nothing has to be withheld.
std::optional<NativeVisibilityPlan> expandedPlan(const Expanded& state,
                                                 std::span<const std::string> runningBundleIdentifiers,
                                                 const std::string& ownBundleIdentifier);

// The hidden set after the user has hidden or shown all items of an application, or one of the system.

HiddenSet settingBundle(const std::string& bundleIdentifier, bool hidden, const HiddenSet& set);
HiddenSet settingSystemItem(std::string_view canonicalIdentifier, bool hidden, const HiddenSet& set);

/// The application or the item of the system that the item belongs to.
HiddenSet setting(std::string_view itemIdentifier, bool hidden, const HiddenSet& set);

/// Whether a plan of this set withholds the item.
bool isHidden(std::string_view itemIdentifier, const HiddenSet& set);

/// Whether any plan can. macOS has no number for some of the system's items.
bool canWithhold(std::string_view itemIdentifier);

/// The rescue unit of an item: its application, or itself when it is the system's. In lower case.
std::string unitOf(std::string_view itemIdentifier);

} // namespace NativeVisibilityPolicy

} // namespace tavrin
