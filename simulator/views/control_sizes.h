#pragma once

#include "base/geometry.h"
#include "views/view.h"
#include "vocabulary/vocabulary.h"

#include <string>
#include <vector>

namespace mac_model {

inline constexpr double checkboxBoxWidth = 14;
inline constexpr double checkboxGap = 6;

/// The size of a view that has no children, without its padding.
Size sizeOfControl(const View&, double width);

/// The words of a Text or a Checkbox as they wrap in this width, without the view's padding.
std::vector<std::string> linesOfControl(const View&, double width);

} // namespace mac_model
