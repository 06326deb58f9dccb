#pragma once

#include "seam_check/runner.h"
#include "seam_check/surroundings.h"

#include <ostream>
#include <string_view>
#include <vector>

namespace tavrin::seam_check {

/// Writes which Mac is looked at. `architecture` is the one the program was built for.
void writeHead(std::ostream& out, const Platform& platform, std::string_view architecture);

/// Writes a line for the result, and one more for what was seen.
void writeResult(std::ostream& out, const CheckResult& result);

/// The promises that stayed untried, then the broken ones, once more by name, and as the last line "12
/// passed, 0 failed, 3 untried".
void writeTotals(std::ostream& out, const std::vector<CheckResult>& results);

/// 0 when every promise was tried and kept, 1 when one was broken, 3 when one stayed untried.
int exitStatus(const std::vector<CheckResult>& results);

/// Which Mac it is, and how far the checks may go.
struct SelfCheckSetup {
    std::string_view architecture;
    Scope scope = Scope::ReadingOnly;
    Surroundings surroundings;
};

/// The whole self-check: head, a line a check as it ends, totals, and after a guided one the page for the
/// eyes. Gives the exit status. `out` outlives the task.
Task<int> selfCheck(Platform platform, SelfCheckSetup setup, std::ostream* out);

} // namespace tavrin::seam_check
