#pragma once

#include "base/geometry.h"
#include "platform/accessibility.h"
#include "views/view.h"

#include <optional>
#include <string>

namespace tavrin {

enum class MenuBarZone { hidden, visible };

struct RunningApplicationSnapshot {
    std::string bundleIdentifier;
    ProcessIdentifier processIdentifier = -1;
    std::string localizedName;

    bool operator==(const RunningApplicationSnapshot&) const = default;
};

/// One status item of another application, as a scan found it at one moment. Code that follows an item from
/// scan to scan compares `id` alone.
struct MenuBarItemSnapshot {
    std::string id;
    std::string name; // for a person
    std::string applicationName;
    std::string bundleIdentifier;
    ProcessIdentifier processIdentifier = -1;
    std::optional<std::string> accessibilityIdentifier; // canonical
    int statusItemIndex = 0;                            // among the owner's items, in the order of the scan
    Rect frame;
    MenuBarZone zone = MenuBarZone::visible;
    bool isMovable = true; // false for what macOS keeps in its place
    bool isParked = false;

    bool operator==(const MenuBarItemSnapshot&) const = default;
};

struct MenuBarItem {
    MenuBarItemSnapshot snapshot;
    std::optional<IconOfApplication> icon;

    bool operator==(const MenuBarItem&) const = default;
};

struct MenuBarItemAssignment {
    std::string itemIdentifier;
    MenuBarZone desiredZone = MenuBarZone::visible;
    MenuBarZone physicalZone = MenuBarZone::visible;

    bool operator==(const MenuBarItemAssignment&) const = default;
};

} // namespace tavrin
