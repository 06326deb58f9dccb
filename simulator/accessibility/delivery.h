#pragma once

#include "accessibility/element.h"
#include "concurrency/virtual_scheduler.h"
#include "privacy/permission.h"
#include "system/process_table.h"
#include "vocabulary/vocabulary.h"

#include <cstdint>
#include <expected>
#include <map>
#include <random>
#include <string>

namespace mac_model {

/// What Accessibility messages cost and how they fail on their way. Each takes the receiver's latency, or the
/// reference's time-out when the receiver hangs, of the calling thread's virtual time.
class MessageDelivery {
  public:
    static constexpr Seconds timeoutAtFirst{6};

    /// `seed` other than 0 makes latencies vary between half and twice their value.
    MessageDelivery(VirtualScheduler& scheduler, const ProcessTable& processes, const Permission& permission,
                    const Uncertainties& uncertainties, std::uint64_t seed)
        : scheduler_(scheduler)
        , processes_(processes)
        , permission_(permission)
        , uncertainties_(uncertainties)
        , varies_(seed != 0)
        , random_(seed) {}

    using Error = AccessibilityError;

    std::expected<void, Error> send(ProcessIdentifier caller, const ElementReference&);
    /// The receiver got the message and doesn't answer in time.
    Error runIntoTimeout(const ElementReference&);

    /// Messages sent since the start, by the receiver's bundle identifier, or its name when it has none.
    const std::map<std::string, std::uint64_t>& messages() const { return messages_; }

  private:
    std::expected<void, Error> deliver(const ElementReference&);
    Seconds latencyOf(const Process&);

    VirtualScheduler& scheduler_;
    const ProcessTable& processes_;
    const Permission& permission_;
    const Uncertainties& uncertainties_;
    std::map<std::string, std::uint64_t> messages_;
    bool varies_;
    std::mt19937_64 random_;
};

} // namespace mac_model
