#pragma once

#include "pins/store/pinned_status_item_reference.h"
#include "pins/store/uuid.h"
#include "shortcuts/hot_key_shortcut.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tavrin {

/// An item on the way from a menu's root to the one that is pressed.
struct PinnedMenuStep {
    std::string title;                     // as read
    std::optional<std::string> identifier; // stable between launches, and no sibling's

    bool operator==(const PinnedMenuStep&) const = default;
};

enum class PinnedMenuOrigin { StatusItem, AppMenuBar };

/// A menu item of another application, remembered so that it can be run later. Two are the same pin when they
/// have the same `id`.
struct PinnedAction {
    Uuid id;
    std::string name;
    std::string bundleIdentifier; // of the application that owns the menu
    std::string applicationName;  // when the pin was made
    PinnedStatusItemReference statusItem;
    std::vector<PinnedMenuStep> path;
    bool hasConfirmedFirstRun = false;
    std::optional<std::string> lastFailure; // none after a run that succeeded
    std::optional<std::vector<std::byte>> iconPng;
    std::optional<HotKeyShortcut> hotKey;
    std::optional<PinnedMenuOrigin> menuOrigin; // ask `origin()`

    /// None stored means a status item.
    PinnedMenuOrigin origin() const { return menuOrigin.value_or(PinnedMenuOrigin::StatusItem); }

    /// The titles of the path, as in "File > Export > PDF".
    std::string pathDescription() const;

    /// Whether both run the same item of the same menu, whatever else they hold.
    bool hasSameTarget(const PinnedAction& other, const Text& text) const;

    bool operator==(const PinnedAction&) const = default;
};

} // namespace tavrin
