#pragma once

#include "concurrency/task.h"
#include "platform/platform.h"
#include "platform/screens.h"
#include "platform/status_items.h"

#include <memory>
#include <optional>
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

    bool isDrawn() const { return item_->frame() && item_->isDrawn(); }

  private:
    void forget() const;

    Platform platform_;
    std::string name_;
    std::unique_ptr<StatusItem> item_;
};

/// A new status item with an image, drawn in the menu bar; none when macOS doesn't draw it in time.
Task<std::optional<ScratchItem>> shownItem(Platform platform, double length);

/// Waits until the item stays where it is; false when it still moves after some seconds.
Task<bool> comesToRest(const StatusItem* item);

/// Why there may be nothing to see.
inline constexpr auto itemNotDrawn =
    "macOS draws no new status item: the menu bar may be full, or this application's items not allowed.";

} // namespace tavrin::seam_check
