#pragma once

#include "seam_check/check.h"

#include <functional>
#include <string>
#include <vector>

namespace tavrin::seam_check {

/// Each runs what the one before it runs, and more.
enum class Scope { ReadingOnly, WithChanges, Guided };

struct CheckResult {
    std::string family;
    std::string promise;
    Verdict verdict;
};

/// Runs the checks one after the other, whatever becomes of each: one that throws, or doesn't end in time,
/// has failed. `onResult` hears each result when its check has ended. A cancelled run returns the results so
/// far.
Task<std::vector<CheckResult>> runChecks(Platform platform, std::vector<Check> checks, Scope scope,
                                         std::function<void(const CheckResult&)> onResult);

} // namespace tavrin::seam_check
