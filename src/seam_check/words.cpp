#include "seam_check/words.h"

#include <cmath>
#include <sstream>

namespace tavrin::seam_check {

std::string said(double number) {
    std::ostringstream words;
    words.precision(10);
    words << number;
    return words.str();
}

std::string said(Seconds duration) { return said(std::round(duration.count() * 1000) / 1000) + " s"; }

std::string said(Point point) { return "(" + said(point.x) + ", " + said(point.y) + ")"; }

std::string said(const Rect& rect) {
    return said(rect.width) + " × " + said(rect.height) + " at " + said(rect.origin());
}

std::string said(AccessibilityError error) {
    return "AXError " + std::to_string(static_cast<std::int32_t>(error));
}

std::string quoted(std::string_view text) { return "“" + std::string(text) + "”"; }

std::string counted(std::size_t count, std::string_view noun) {
    return std::to_string(count) + " " + std::string(noun) + (count == 1 ? "" : "s");
}

} // namespace tavrin::seam_check
