#pragma once

#include "hiding/hidden_items.h"
#include "hiding/skerrow_policy.h"
#include "native/policy/native_visibility_plan.h"
#include "platform/platform.h"

#include <optional>
#include <string>
#include <vector>

namespace tavrin {

/// The plans of this moment, from the applications that run and the screens that are there. Main thread.
class NativePlans {
  public:
    NativePlans(const Platform& platform, const HiddenItems& hiddenItems)
        : platform_(platform)
        , hiddenItems_(hiddenItems) {}

    /// The plan while items are hidden.
    NativeVisibilityPlan currentNativePlan() const;

    /// The plan of the revealed menu bar, which withholds these units; none when nothing has to be withheld.
    std::optional<NativeVisibilityPlan> expandedNativePlan(HiddenSet rescued) const;

  private:
    std::vector<std::string> runningBundleIdentifiers() const;

    const Platform& platform_;
    const HiddenItems& hiddenItems_;
};

} // namespace tavrin
