#pragma once

#include "base/geometry.h"
#include "concurrency/scheduler.h"
#include "desktop/desktop_file.h"
#include "menu_bar/status_layout.h"
#include "platform/accessibility.h"
#include "views/kept_focus.h"
#include "views/view_queries.h"
#include "vocabulary/vocabulary.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mac_model {

/// From the lowest level to the highest: a surface is in front of all of lower kinds. A Drag is the picture
/// of a thing that is being dragged; the pointer never meets it.
enum class SurfaceKind { Window, Alert, Panel, Popover, Menu, Drag };
inline constexpr std::array<std::string_view, 6> surfaceKindNames{"window",  "alert", "panel",
                                                                  "popover", "menu",  "drag"};

enum class SurfaceIdentifier : std::uint64_t { None = 0 };

enum class OutsidePress { Ignored, Closes };

struct MenuRow {
    MenuItemSpec item;
    Rect frame;
};

/// Something on the screen that is no part of the menu bar. Frames are in screen points.
struct Surface {
    static constexpr double titleBarHeight = 28;

    SurfaceIdentifier identifier{};
    SurfaceKind kind = SurfaceKind::Window;
    ProcessIdentifier owner = 0;
    std::string title;
    Rect frame;
    bool hasTitleBar = false;
    OutsidePress outsidePress = OutsidePress::Ignored;

    LaidOutView content;       // all but menus
    tavrin::KeptFocus focus;   // nowhere until the person or the program has put it somewhere
    std::vector<MenuRow> rows; // menus; a row that is scrolled away keeps its frame, outside the menu's
    double rowsOffset = 0;     // points of the rows above the menu's top edge
    double rowsOffsetMax = 0;
    std::optional<std::size_t> highlightedRow;

    std::optional<double> arrowX; // where a popover's arrow points, at its top edge
    StatusItemIdentifier anchor = StatusItemIdentifier::None; // the status item that it belongs to

    /// Runs a callback of the content in its owner, later; drops it when the owner is gone by then.
    std::function<void(Work)> deliver;
    /// Called when the person has moved the keyboard focus in it.
    std::function<void()> onFocusMoved;
    /// Called when it is no longer the key surface, also because it closes, and then first.
    std::function<void()> onResignedKey;
    /// Called when anyone but its owner has closed it.
    std::function<void()> onDismissed;

    Rect contentFrame() const {
        const double top = hasTitleBar ? titleBarHeight : 0;
        return {frame.x, frame.y + top, frame.width, frame.height - top};
    }

    Rect closeButton() const { return {frame.x + 9, frame.y + 8, 12, 12}; }
};

} // namespace mac_model
