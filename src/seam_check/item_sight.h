#pragma once

#include "platform/platform.h"
#include "platform/status_items.h"
#include "platform/window_server.h"

#include <optional>
#include <string>
#include <vector>

namespace tavrin::seam_check {

/// What three sources tell of one item at the same moment: AppKit's occlusion, AppKit's frame, and the list
/// of the window server.
struct ItemSight {
    bool isDrawn = false;
    std::optional<Rect> frame;
    std::optional<OnScreenWindow> window; // in the menu bar's layer, where the frame is
    bool isInMenuBar = false;             // the frame has a height and lies in a menu bar
    bool isBesideNotch = true;            // the notch covers nothing of the frame
    bool areItemsListed = true;           // from macOS 27 on the menu bar is one window

    /// Drawn, placed and listed.
    bool isSeen() const;
    /// Whether the sources can all be right.
    bool agrees() const;
};

ItemSight lookAt(const Platform& platform, const StatusItem& item);

/// All three.
std::string said(const ItemSight& sight);

bool isInAMenuBar(const Platform& platform, const Rect& frame);

/// How far a frame may be from what is expected, in points: macOS draws some items a little wider than their
/// places.
inline constexpr double itemSlack = 4;

} // namespace tavrin::seam_check
