#pragma once

#include "concurrency/task.h"
#include "platform/platform.h"
#include "platform/screens.h"
#include "platform/status_items.h"
#include "seam_check/check.h"

#include <expected>
#include <memory>
#include <string>
#include <utility>

namespace tavrin::seam_check {

/// A status item under a name of its own; at its end macOS has forgotten what it stored for that name. It
/// asks for a place far to the right, where a crowded menu bar still draws it.
class ScratchItem {
  public:
    /// `position` is the distance from the right edge in points.
    ScratchItem(Platform platform, std::string name, double length, double position);
    ScratchItem(ScratchItem&&) noexcept = default;
    ScratchItem& operator=(ScratchItem&&) = delete;
    ~ScratchItem();

    StatusItem& operator*() const { return *item_; }

    StatusItem* operator->() const { return item_.get(); }

    /// Whether macOS has given it a place, which takes a moment from version 26 on.
    bool isPlaced() const;

    bool isDrawn() const { return isPlaced() && item_->isDrawn(); }

  private:
    void forget() const;

    Platform platform_;
    std::string name_;
    std::unique_ptr<StatusItem> item_;
};

/// The longest that macOS was seen to take for the place of a new item, and a second more.
inline constexpr Seconds placementTimeMax{5};

/// Two new items side by side.
struct ItemPair {
    ScratchItem left;
    ScratchItem right;
};

/// A new status item with an image, drawn in the menu bar and at rest. The error is the verdict when it isn't
/// drawn in time: untried when macOS shows none, failed when what tells of the item contradicts itself.
Task<std::expected<ScratchItem, Verdict>> shownItem(Platform platform, double length);

/// Two of 24 points, or the verdict as above.
Task<std::expected<ItemPair, Verdict>> shownPair(Platform platform);

/// Waits until the item stays where it is; false when it still moves after some seconds.
Task<bool> comesToRest(const StatusItem* item);

} // namespace tavrin::seam_check
