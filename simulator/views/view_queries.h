#pragma once

#include "views/focus.h"
#include "views/laid_out_view.h"
#include "vocabulary/vocabulary.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace mac_model {

using tavrin::ViewPath;

/// The words that it shows.
std::string shownText(const LaidOutView&);

/// The tree as the program gave it.
View viewOf(const LaidOutView&);

/// Null when the tree has no such place.
const LaidOutView* viewAt(const LaidOutView& root, const ViewPath&);
LaidOutView* viewAt(LaidOutView& root, const ViewPath&);

// Views under a pointer; parts that are scrolled away are never found.

/// The deepest matching view; later siblings are in front.
std::optional<ViewPath> deepestAt(const LaidOutView& root, Point,
                                  const std::function<bool(const LaidOutView&)>& matches);
/// The same, but none when a control inside it takes a press at the point.
std::optional<ViewPath> deepestPressedAt(const LaidOutView& root, Point,
                                         const std::function<bool(const LaidOutView&)>& matches);
std::optional<ViewPath> controlAt(const LaidOutView& root, Point);
LaidOutView* scrollAt(LaidOutView& root, Point);
const LaidOutView* contextMenuAt(const LaidOutView& root, Point);

/// The enabled button that Return presses.
const LaidOutView* defaultButton(const LaidOutView& root);

/// Only the part of the view at the path that lies inside all Scrolls above it shows.
Rect shownPart(const LaidOutView& root, const ViewPath&);

/// Whether the middle of the view at the path shows.
bool isInSight(const LaidOutView& root, const ViewPath&);

/// Scrolls until the view at the path can be seen, as far as possible.
void reveal(LaidOutView& root, const ViewPath&);

/// Parents before children, in order.
void forEachView(const LaidOutView& root, const std::function<void(const LaidOutView&, const ViewPath&)>&);

} // namespace mac_model
