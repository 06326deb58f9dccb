#pragma once

#include "base/geometry.h"
#include "platform/accessibility.h"
#include "views/view.h"

#include <optional>
#include <string>
#include <variant>

namespace tavrin {

enum class MenuBarZone { hidden, visible };

struct RunningApplicationSnapshot {
    std::string bundleIdentifier;
    ProcessIdentifier processIdentifier = -1;
    std::string localizedName;
    bool isRegular = false; // has titles in its menu bar

    bool operator==(const RunningApplicationSnapshot&) const = default;
};

/// What an item is followed by from scan to scan. Two processes under one bundle identifier may have items of
/// one identifier, which are different items; what the user wants of them is stored by the identifier alone.
struct MenuBarItemIdentity {
    std::string itemIdentifier;
    ProcessIdentifier processIdentifier = -1;

    bool operator==(const MenuBarItemIdentity&) const = default;
};

/// One status item of another application, as a scan found it at one moment.
struct MenuBarItemSnapshot {
    std::string id;
    std::string name; // for a person
    std::string applicationName;
    std::string bundleIdentifier;
    ProcessIdentifier processIdentifier = -1;
    bool isOwnerRegular = false;
    std::optional<std::string> accessibilityIdentifier; // canonical
    int statusItemIndex = 0;                            // among the owner's items, in the order of the scan
    Rect frame;
    MenuBarZone zone = MenuBarZone::visible;
    bool isMovable = true; // false for what macOS keeps in its place
    bool isParked = false;

    MenuBarItemIdentity identity() const { return {id, processIdentifier}; }

    bool operator==(const MenuBarItemSnapshot&) const = default;
};

/// What stands for an item in a list: a symbol of the system where one application has several items that
/// everyone knows by their pictures, else its application's icon.
using MenuBarItemIcon = std::variant<IconOfApplication, std::string>;

struct MenuBarItem {
    MenuBarItemSnapshot snapshot;
    std::optional<MenuBarItemIcon> icon;

    bool operator==(const MenuBarItem&) const = default;
};

struct MenuBarItemAssignment {
    std::string itemIdentifier;
    ProcessIdentifier processIdentifier = -1;
    MenuBarZone desiredZone = MenuBarZone::visible;
    MenuBarZone physicalZone = MenuBarZone::visible;

    MenuBarItemIdentity identity() const { return {itemIdentifier, processIdentifier}; }

    bool operator==(const MenuBarItemAssignment&) const = default;
};

} // namespace tavrin
