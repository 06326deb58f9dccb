#pragma once

#include "platform/macos/support/apple.h"
#include "platform/macos/support/callback_gate.h"
#include "platform/macos/views/view_control_sizes.h"
#include "views/view.h"

@class TavrinSurfaceView;

namespace tavrin::macos {

/// While no screen is there to limit it, in points.
inline constexpr double heightUnlimited = 1e6;

/// Shows a view tree as AppKit views. What AppKit shows depends on the tree alone; nodes that keep their kind
/// and place from one tree to the next keep their NSView, and with it focus and scrolling.
class ViewRenderer {
  public:
    explicit ViewRenderer(Deliver deliver);

    /// The view that holds everything, the same for the renderer's life. Its content lies at its top left.
    NSView* surface() const;

    /// Takes effect on the screen with the next `layOut`.
    void setContent(View content);

    /// Lays the content out at the size that it needs and answers that size, in whole points, for the owner
    /// to give to the surface: a window sets the frame of its content view by itself, and takes it amiss when
    /// somebody else does. Content that names no width gets at most `widthMax`; where it is higher than
    /// `heightMax`, what scrolls gives way.
    NSSize layOut(double widthMax, double heightMax);

    /// Comes before the owner takes the surface from the screen without telling the program: recorders on it
    /// would tell.
    void letGo();

    /// Gives the keyboard to the surface, whose window must be there.
    void takeKeyboard();

  private:
    TavrinSurfaceView* surface_;
    MacControlSizes sizes_;
};

} // namespace tavrin::macos
