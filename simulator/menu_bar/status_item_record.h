#pragma once

#include "desktop/desktop_file.h"
#include "menu_bar/status_layout.h"
#include "platform/accessibility.h"
#include "platform/status_items.h"
#include "vocabulary/vocabulary.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace mac_model {

/// How the program wants its item drawn.
struct ItemAppearance {
    TemplateImage image;
    double alpha = 1;
    bool isPillShown = false;
    double glow = 0;

    bool operator==(const ItemAppearance&) const = default;
};

enum class ItemOrigin { DesktopFile, Program };

/// One status item of any process, and where it stands now.
struct StatusItemRecord {
    StatusItemIdentifier identifier{};
    ProcessIdentifier owner = 0;
    ItemOrigin origin = ItemOrigin::DesktopFile;

    /// The item's texts, and what it opens. The program's items keep their label in `description`, their tool
    /// tip in `help`.
    StatusItemSpec spec;
    std::string name;  // autosave name
    double length = 0; // as asked for: points or `squareStatusItemLength`
    std::optional<double> preferredPosition;
    bool isVisible = true;     // not removed by its owner or the person
    bool isRestricted = false; // macOS doesn't let it into the menu bar
    bool isBehindNotch = false;
    bool isCarried = false; // the person is moving it with Command held

    std::optional<Point> pressedAt;   // by the person, on any screen; what it opens belongs there
    bool isOpen = false;              // its menu, popover or panel is on the screen
    std::uint64_t menuGeneration = 1; // each closing of its menu ends the life of the menu's elements

    ItemAppearance appearance;                   // the program's items
    std::string spokenValue;                     // the program's items
    std::vector<tavrin::ViewAction> actions;     // the program's items, beside the press
    std::function<void(StatusItemPress)> action; // the program's items; call it by `StatusItemTable::press`

    /// On the primary screen; none while the item is not in the menu bar or not arranged yet.
    std::optional<Rect> frame;
    bool isDrawn = false;
    std::optional<HiddenReason> why;
    std::optional<Rect> lastDrawnFrame; // where it was when it was drawn last

    bool isClock() const { return spec.identifier == "com.apple.menuextra.clock" || name == "Clock"; }
};

} // namespace mac_model
