#include "seam_check/waiting.h"

#include <utility>

namespace tavrin::seam_check {

Task<bool> comesTrue(Platform platform, std::function<bool()> condition, Seconds limit) {
    constexpr Seconds interval{0.02};
    const auto end = platform.scheduler.now() + limit;
    while (!condition()) {
        if (platform.scheduler.now() >= end) co_return false;
        if (co_await sleepFor(interval) == Wake::CutShort) co_return false;
    }
    co_return true;
}

} // namespace tavrin::seam_check
