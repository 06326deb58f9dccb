#pragma once

#include "input/pointer.h"
#include "screen/surface_stack.h"
#include "system/world_calls.h"
#include "vocabulary/vocabulary.h"

#include <functional>
#include <optional>
#include <string>

namespace mac_model {

/// The view that a press at the point may drag; none when a control inside it takes the press.
std::optional<ViewPath> dragSourceAt(const LaidOutView& root, Point);

/// The innermost view at the point that takes drops.
std::optional<ViewPath> dropTargetAt(const LaidOutView& root, Point);

/// A person's drag of a view that carries a value, from the press on it to the drop. The drag keeps its own
/// copy of what is carried, because the view, its surface and its process may go meanwhile. Near the edge of
/// a Scroll the content moves on for as long as the pointer stays there.
class ViewDrag {
  public:
    ViewDrag(SurfaceStack& stack, const Pointer& pointer, VirtualScheduler& scheduler)
        : stack_(stack)
        , pointer_(pointer)
        , calls_(scheduler) {}

    ~ViewDrag() { stack_.remove(preview_); }

    ViewDrag(const ViewDrag&) = delete;
    ViewDrag& operator=(const ViewDrag&) = delete;

    /// The button went down at the pointer, on this surface. The drag is underway once the pointer has moved
    /// more than 4 points.
    void begin(const Surface&);
    void pointerMoved();
    /// The button was released at the pointer; false when no drag was underway.
    bool drop();
    /// False when no drag was underway.
    bool cancel();

    bool isUnderway() const { return preview_ != SurfaceIdentifier::None; }

  private:
    struct Load {
        std::string value;
        View preview;
        SurfaceIdentifier source;
        ProcessIdentifier owner;
        Point pressedAt;
    };

    struct Target {
        SurfaceIdentifier surface;
        ViewPath path;
        std::function<void(Work)> deliver;
        std::function<void(bool)> onDragOver;
        std::function<void(const std::string&)> onDrop;

        void tell(bool isOver) const;
    };

    void showPreview();
    void movePreview();
    std::optional<Target> targetAtPointer() const;
    void enter(std::optional<Target>);
    double scrollStep() const;
    void scrollLater();
    void scroll();

    SurfaceStack& stack_;
    const Pointer& pointer_;
    std::optional<Load> load_;
    SurfaceIdentifier preview_{};
    std::optional<Target> over_;
    bool isScrollPending_ = false;
    WorldCalls calls_;
};

} // namespace mac_model
