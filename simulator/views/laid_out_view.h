#pragma once

#include "base/geometry.h"
#include "views/view.h"
#include "vocabulary/vocabulary.h"

#include <string>
#include <vector>

namespace mac_model {

/// A view with its place on the screen. A view that is scrolled out of sight keeps its frame, which then lies
/// outside that of its Scroll.
struct LaidOutView {
    View view;                      // its children stand below, laid out
    Rect frame;                     // screen points
    std::vector<std::string> lines; // Text and Checkbox: the text as wrapped
    double scrollOffset = 0;        // Scroll: points of its child above its top edge
    double scrollOffsetMax = 0;
    std::string recorderTitle; // ShortcutRecorder
    bool isRecording = false;
    std::vector<LaidOutView> children;
};

/// The size that the view takes when it is offered `width`; less when it needs less, more only where
/// something cannot be narrowed.
Size measured(const View&, double width);

/// Lays the view out into `frame`, all Scrolls at their tops.
LaidOutView laidOut(View, Rect frame);

/// Moves the content of a Scroll as far as it goes.
void scrollTo(LaidOutView& scroll, double offset);

/// Scrolls `now` as `before` was, where both have a Scroll in the same place.
void carryScrolling(const LaidOutView& before, LaidOutView& now);

void moveBy(LaidOutView&, double dx, double dy);

} // namespace mac_model
