#include "accessibility/delivery.h"

#include <algorithm>

namespace mac_model {

namespace {

/// How often a message that waits for a hung process looks whether the process has come back.
constexpr Seconds wakingInterval{0.05};

Seconds timeoutOf(const ElementReference& reference) {
    return reference.timeout() > Seconds{0} ? reference.timeout() : MessageDelivery::timeoutAtFirst;
}

} // namespace

Seconds MessageDelivery::latencyOf(const Process& process) {
    constexpr double whole = 4294967296.0;
    const double chance = static_cast<double>(random_() >> 32U) / whole;
    const double factor = varies_ ? 0.5 + 1.5 * chance : 1;
    return Seconds{process.application.latencySeconds * factor};
}

MessageDelivery::Error MessageDelivery::runIntoTimeout(const ElementReference& reference) {
    scheduler_.spend(timeoutOf(reference));
    return Error::CannotComplete;
}

std::expected<void, MessageDelivery::Error> MessageDelivery::send(ProcessIdentifier caller,
                                                                  const ElementReference& reference) {
    const auto receiver = reference.key().process;
    const auto* process = processes_.find(receiver);
    if (receiver != caller && !permission_.isTrusted()) {
        const bool waits =
            permission_.wasRevoked() && uncertainties_.revokedAccess == RevokedAccess::TimesOut;
        return std::unexpected(waits ? runIntoTimeout(reference) : Error::ApiDisabled);
    }
    if (!process) return std::unexpected(Error::InvalidElement);
    const auto& application = process->application;
    ++messages_[application.bundleIdentifier.empty() ? application.name : application.bundleIdentifier];
    return deliver(reference);
}

std::expected<void, MessageDelivery::Error> MessageDelivery::deliver(const ElementReference& reference) {
    const auto receiver = reference.key().process;
    auto left = timeoutOf(reference);
    while (processes_.find(receiver) && !processes_.find(receiver)->application.responding &&
           left > Seconds{0}) {
        const auto step = std::min(left, wakingInterval);
        scheduler_.spend(step);
        left -= step;
    }
    if (!processes_.find(receiver) || left <= Seconds{0}) return std::unexpected(Error::CannotComplete);
    const auto latency = latencyOf(*processes_.find(receiver));
    scheduler_.spend(std::min(latency, left));
    const auto* process = processes_.find(receiver);
    if (!process || latency > left) return std::unexpected(Error::CannotComplete);
    if (process->application.accessibility == AccessibilitySupport::None)
        return std::unexpected(Error::NotImplemented);
    return {};
}

} // namespace mac_model
