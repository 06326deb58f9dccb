#pragma once

#include "platform/platform.h"
#include "platform/presentation.h"

#include <functional>
#include <memory>

namespace tavrin {

/// What the configure window stands in: a popover at the control, or a window of its own where no popover
/// comes up because the control can't be seen. Main thread.
class ConfigureSurface {
  public:
    enum class Kind { Popover, Window };

    /// `onClose` runs after it has closed by anyone else's doing.
    ConfigureSurface(const Platform& platform, std::function<void(Kind)> onClose);
    ConfigureSurface(const ConfigureSurface&) = delete;
    ConfigureSurface& operator=(const ConfigureSurface&) = delete;

    /// False, and nothing shows, when no popover comes up at the control.
    bool showPopover(StatusItem& control, Rect glyph, PopoverBehavior behavior, View content);
    void showWindow(View content);

    bool isShown() const { return (popover_ && popover_->isShown()) || (window_ && window_->isVisible()); }

    void setContent(View content);
    void setBehavior(PopoverBehavior behavior);
    /// For one that is shown already.
    void bringToFront();

    /// Without telling.
    void close();

  private:
    void didClose(Kind kind);

    const Platform& platform_;
    std::function<void(Kind)> onClose_;
    std::unique_ptr<Popover> popover_;
    std::unique_ptr<Window> window_;
};

} // namespace tavrin
