#pragma once

#include "platform/macos/support/apple.h"

@class TavrinActivePillView, TavrinCoralGlowView;

namespace tavrin::macos {

/// The drawings behind the control's glyph: a pill while items are hidden, a coral glow while the hint points
/// at it. Both let the mouse through.
class MenuBarControlDecorations {
  public:
    /// Puts the drawings behind the button; again after macOS has given the button another window. Does
    /// nothing while the button stands nowhere.
    void attach(NSStatusBarButton* button);
    void detach();

    /// `glow` from 0 to 1. It moves there slowly, where motion is reduced at once.
    void show(bool pillShown, double glow);

    /// A rectangle of this size around the middle of the button, in the coordinates of `view`.
    static NSRect decorationFrame(NSSize size, NSView* aroundButton, NSView* view);

  private:
    TavrinActivePillView* pill_ = nil;
    TavrinCoralGlowView* glow_ = nil;
};

} // namespace tavrin::macos
