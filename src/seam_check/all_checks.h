#pragma once

#include "seam_check/check.h"

#include <vector>

namespace tavrin::seam_check {

// One function a family.
std::vector<Check> schedulerChecks();
std::vector<Check> textChecks();
std::vector<Check> screensChecks();
std::vector<Check> applicationChecks();
std::vector<Check> workspaceChecks();
std::vector<Check> windowServerChecks();
std::vector<Check> accessibilityChecks();
std::vector<Check> defaultsChecks();
std::vector<Check> eventsChecks();
std::vector<Check> hotKeysChecks();
std::vector<Check> keyboardChecks();
std::vector<Check> loginItemChecks();
std::vector<Check> statusItemsChecks();
std::vector<Check> presentationChecks();

/// The checks that the others rely on come first.
std::vector<Check> allChecks();

} // namespace tavrin::seam_check
