#include "seam_check/all_checks.h"

#include <iterator>

namespace tavrin::seam_check {

std::vector<Check> allChecks() {
    std::vector<Check> all;
    for (auto* family : {schedulerChecks, textChecks, screensChecks, applicationChecks, workspaceChecks,
                         windowServerChecks, accessibilityChecks, defaultsChecks, eventsChecks, hotKeysChecks,
                         keyboardChecks, loginItemChecks, statusItemsChecks, presentationChecks}) {
        auto checks = family();
        all.insert(all.end(), std::make_move_iterator(checks.begin()), std::make_move_iterator(checks.end()));
    }
    return all;
}

} // namespace tavrin::seam_check
