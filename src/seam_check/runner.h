#pragma once

#include "seam_check/check.h"

#include <functional>
#include <string>
#include <vector>

namespace tavrin::seam_check {

enum class Scope { ReadingOnly, WithChanges };

struct CheckResult {
    std::string family;
    std::string promise;
    Verdict verdict;
};

/// Runs the checks one after the other, whatever becomes of each: what one throws, or that it doesn't end in
/// time, is its failure. `onResult` hears each when it has ended. Cancelled, it returns what there is so far.
Task<std::vector<CheckResult>> runChecks(Platform platform, std::vector<Check> checks, Scope scope,
                                         std::function<void(const CheckResult&)> onResult);

} // namespace tavrin::seam_check
