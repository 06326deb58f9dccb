#pragma once

#include "concurrency/scheduler.h"
#include "concurrency/task.h"
#include "concurrency/waits.h"

#include <algorithm>
#include <type_traits>

namespace tavrin {

enum class Waited { Met, TimedOut, CutShort };

/// Looks at a condition at once, then after every interval, and once more when the limit has passed: what
/// came true in the last interval isn't missed, even when the look before it took longer than the limit. The
/// condition gives a bool or a Task<bool>; what it refers to stays alive while it is awaited. Main thread.
template <class Condition>
// NOLINTNEXTLINE(cppcoreguidelines-avoid-reference-coroutine-parameters): the scheduler runs the waiting job.
Task<Waited> waitUntil(const Scheduler& scheduler, Condition condition, Seconds interval, Seconds limit) {
    constexpr double roundingShare = 0.01; // a rest that only rounding leaves is no further interval
    const auto until = scheduler.now() + limit;
    for (bool isLastLook = false;;) {
        bool isMet = false;
        if constexpr (std::is_same_v<std::invoke_result_t<Condition&>, bool>)
            isMet = condition();
        else
            isMet = co_await condition();
        if (isMet) co_return Waited::Met;
        if (isLastLook) co_return Waited::TimedOut;
        const auto left = std::max(until - scheduler.now(), Seconds{0});
        isLastLook = left <= interval * (1 + roundingShare);
        if (co_await sleepFor(isLastLook ? left : interval) == Wake::CutShort) co_return Waited::CutShort;
    }
}

} // namespace tavrin
