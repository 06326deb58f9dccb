#pragma once

#include "concurrency/scheduler.h"

#include <compare>
#include <cstdint>
#include <memory>
#include <utility>

namespace tavrin {

/// The order in which work runs: by due time, then by order of posting.
struct DueKey {
    double due; // seconds
    std::uint64_t sequence;
    auto operator<=>(const DueKey&) const = default;
};

/// Makes work whose copies share one state: a timer that stays listed while its work runs needs that.
inline Work sharedWork(Work work) {
    return [shared = std::make_shared<Work>(std::move(work))] { (*shared)(); };
}

} // namespace tavrin
