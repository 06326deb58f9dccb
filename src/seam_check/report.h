#pragma once

#include "seam_check/runner.h"

#include <ostream>
#include <string_view>
#include <vector>

namespace tavrin::seam_check {

/// Writes which Mac is looked at. `architecture` is the one the program was built for.
void writeHead(std::ostream& out, const Platform& platform, std::string_view architecture);

/// Writes a line for the result, and one more for what was seen.
void writeResult(std::ostream& out, const CheckResult& result);

/// "12 passed, 0 failed, 3 skipped", and the failures once more by name.
void writeTotals(std::ostream& out, const std::vector<CheckResult>& results);

/// 0 when nothing has failed.
int exitStatus(const std::vector<CheckResult>& results);

/// The whole self-check: head, a line a check as it ends, totals. Gives the exit status. `out` outlives the
/// task.
Task<int> selfCheck(Platform platform, Scope scope, std::string_view architecture, std::ostream* out);

} // namespace tavrin::seam_check
