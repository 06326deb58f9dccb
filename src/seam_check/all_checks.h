#pragma once

#include "seam_check/check.h"
#include "seam_check/surroundings.h"

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
std::vector<Check> defaultsChecks(const Surroundings&);
std::vector<Check> eventsChecks();
std::vector<Check> eventMonitorsChecks();
std::vector<Check> hotKeysChecks(const Surroundings&);
std::vector<Check> keyboardChecks();
std::vector<Check> loginItemChecks();
std::vector<Check> statusItemsChecks();
std::vector<Check> itemOrderChecks();
std::vector<Check> itemAccessChecks();
std::vector<Check> visibilityServiceChecks();
std::vector<Check> presentationChecks();
std::vector<Check> guidedChecks();

/// The checks that the others rely on come first, and those that ask a person come last.
std::vector<Check> allChecks(const Surroundings& = {});

} // namespace tavrin::seam_check
