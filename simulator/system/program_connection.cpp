#include "system/program_connection.h"

namespace mac_model {

Subscription ProgramConnection::relay(Signal<>& signal, std::function<void()> handler) {
    const auto kept = std::make_shared<std::function<void()>>(std::move(handler));
    auto subscription = std::make_shared<Subscription>(signal.subscribe([self = weak_from_this(), kept] {
        const auto connection = self.lock();
        if (!connection) return;
        connection->post([kept] {
            // A copy, because a handler that unsubscribes itself must not destroy the running function.
            if (const auto call = *kept) call();
        });
    }));
    return Subscription([subscription, kept] {
        subscription->cancel();
        *kept = nullptr;
    });
}

} // namespace mac_model
