#include "seam_check/all_checks.h"

#include <iterator>

namespace tavrin::seam_check {

namespace {

void append(std::vector<Check>& all, std::vector<Check> checks) {
    all.insert(all.end(), std::make_move_iterator(checks.begin()), std::make_move_iterator(checks.end()));
}

} // namespace

std::vector<Check> allChecks(const Surroundings& surroundings) {
    std::vector<Check> all;
    for (auto* family : {schedulerChecks, textChecks, screensChecks, applicationChecks, workspaceChecks,
                         windowServerChecks, accessibilityChecks})
        append(all, family());
    append(all, defaultsChecks(surroundings));
    append(all, eventsChecks());
    append(all, eventMonitorsChecks());
    append(all, hotKeysChecks(surroundings));
    for (auto* family : {keyboardChecks, loginItemChecks, statusItemsChecks, itemOrderChecks,
                         itemAccessChecks, visibilityServiceChecks, presentationChecks, guidedChecks})
        append(all, family());
    return all;
}

} // namespace tavrin::seam_check
