#include "native/native_plans.h"

#include "native/policy/native_visibility_policy.h"
#include "platform/application.h"
#include "platform/screens.h"
#include "platform/workspace.h"

#include <utility>

namespace tavrin {

NativeVisibilityPlan NativePlans::currentNativePlan() const {
    return NativeVisibilityPolicy::plan(hiddenItems_.identifiers().get(), runningBundleIdentifiers(),
                                        platform_.application.bundleIdentifier());
}

std::optional<NativeVisibilityPlan> NativePlans::expandedNativePlan(HiddenSet rescued) const {
    const auto screens = platform_.screens.screens();
    return NativeVisibilityPolicy::expandedPlan({.screens = screens, .rescued = std::move(rescued)},
                                                runningBundleIdentifiers(),
                                                platform_.application.bundleIdentifier());
}

std::vector<std::string> NativePlans::runningBundleIdentifiers() const {
    std::vector<std::string> identifiers;
    for (const auto& application : platform_.workspace.runningApplications())
        if (application.bundleIdentifier) identifiers.push_back(*application.bundleIdentifier);
    return identifiers;
}

} // namespace tavrin
