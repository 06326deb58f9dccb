#pragma once

#include "base/geometry.h"
#include "views/view.h"

#include <string>
#include <variant>

namespace tavrin {

// A drag of a view, the same on all platforms. Points.

inline constexpr double dragThreshold = 4; // how far a pressed pointer goes before it drags

/// Near the upper and lower edge of a Scroll a drag moves its content on, by steps.
inline constexpr double dragScrollEdge = 24;
inline constexpr double dragScrollStep = 10;

/// What follows the pointer while a view is dragged: its first picture, fitted into a square, and its label.
struct DragPreview {
    static constexpr double padding = 6;
    static constexpr double spacing = 8;
    static constexpr double pictureSide = 20;
    static constexpr double labelWidthMax = 280;
    static constexpr Point grip{14, 14}; // from its top left corner to the pointer

    std::variant<std::monostate, kinds::Icon, kinds::Symbol> picture;
    std::string label;
};

DragPreview dragPreviewOf(const View& dragged);

} // namespace tavrin
