#pragma once

#include "base/geometry.h"

namespace tavrin::StatusItemGeometryPolicy {

/// Whether the spacer lies left of the control; a point of overlap is allowed.
inline bool isLeftOf(const Rect& spacer, const Rect& control) {
    return spacer.isFinite() && control.isFinite() && spacer.maxX() <= control.minX() + 1;
}

} // namespace tavrin::StatusItemGeometryPolicy
