#pragma once

#include <string_view>

namespace tavrin::seam_check {

/// What no program can see of itself: questions for the person in front of the Mac.
std::string_view pageForTheEyes();

} // namespace tavrin::seam_check
