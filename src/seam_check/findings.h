#pragma once

#include "seam_check/check.h"

#include <string>
#include <utility>

namespace tavrin::seam_check {

/// Gathers broken promises, so that one check tells of all of them.
class Findings {
  public:
    void expect(bool isKept, const std::string& complaint) {
        if (isKept) return;
        complaints_ += (complaints_.empty() ? "" : "; ") + complaint;
    }

    bool areNone() const { return complaints_.empty(); }

    /// Failed with the complaints, or passed with what was seen.
    Verdict verdict(std::string seen) const {
        return areNone() ? passed(std::move(seen)) : failed(complaints_ + ".");
    }

  private:
    std::string complaints_;
};

} // namespace tavrin::seam_check
