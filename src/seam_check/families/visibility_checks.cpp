#include "platform/application.h"
#include "platform/event_monitors.h"
#include "platform/events.h"
#include "platform/visibility_service.h"
#include "seam_check/all_checks.h"
#include "seam_check/findings.h"
#include "seam_check/words.h"

#include <array>
#include <cmath>
#include <string>

namespace tavrin::seam_check {

namespace {

/// Nothing is hidden by it: the lists are never put in force.
Verdict listsAreMadeWhereTheServiceIs(const Platform& platform) {
    auto& service = platform.visibilityService;
    const std::array own{platform.application.bundleIdentifier()};
    Findings findings;
    const bool isThere = service.isAvailable();
    findings.expect((service.make({}, own) != nullptr) == isThere,
                    isThere ? "no list is made" : "a list is made without the service");
    findings.expect(service.isAvailable() == isThere, "the service is now there and now not");
    return findings.verdict(isThere ? "The service is there." : "This macOS has no such service.");
}

Verdict monitorsAgreeOnThePointer(const Platform& platform) {
    constexpr double tolerance = 3; // the person may be moving it
    const auto pointer = platform.events.pointerLocation();
    if (!pointer) return skipped("No event could be made to tell where it is.");
    const auto watched = platform.eventMonitors.pointerLocation();
    if (std::hypot(watched.x - pointer->x, watched.y - pointer->y) <= tolerance)
        return passed("Both say " + said(watched) + ".");
    return failed("Monitors say " + said(watched) + ", events " + said(*pointer) + ".");
}

} // namespace

std::vector<Check> visibilityChecks() {
    return {reads("visibility service", "Lists of what may show are made exactly where the service is there.",
                  listsAreMadeWhereTheServiceIs),
            reads("event monitors", "The pointer is where events say, too.", monitorsAgreeOnThePointer)};
}

} // namespace tavrin::seam_check
