#pragma once

#include "base/geometry.h"
#include "concurrency/task.h"
#include "platform/platform.h"

#include <cstdint>
#include <optional>
#include <set>

namespace tavrin::seam_check {

/// The windows of this process that the window server lists, so that what comes up is seen and not believed.
/// Taken before something is shown, it tells what came after.
class OwnWindows {
  public:
    explicit OwnWindows(Platform platform);

    /// The largest window that has come since; none when none has. What is smaller than a text isn't one.
    std::optional<Rect> appeared() const;

    Task<bool> comes() const;
    /// Whether all that has come since goes again.
    Task<bool> goes() const;

  private:
    Platform platform_;
    std::set<std::uint32_t> before_;
};

} // namespace tavrin::seam_check
