#include "seam_check/waiting.h"

#include "concurrency/wait_until.h"

#include <utility>

namespace tavrin::seam_check {

Task<bool> comesTrue(Platform platform, std::function<bool()> condition, Seconds limit) {
    constexpr Seconds interval{0.02};
    const auto waited = co_await waitUntil(platform.scheduler, std::move(condition), interval, limit);
    co_return waited == Waited::Met;
}

} // namespace tavrin::seam_check
