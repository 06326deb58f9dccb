#include "seam/system/program_event_monitors.h"

#include "base/owner_gate.h"

namespace mac_model {

/// A copy waits for the main loop; one that waits while its monitor goes is dropped.
Subscription ProgramEventMonitors::watch(tavrin::EventMask events,
                                         std::function<void(const tavrin::WatchedEvent&)> handler) {
    auto gate = std::make_shared<tavrin::OwnerGate>();
    const auto deliver =
        [events, connection = side_.connection, pass = gate->pass(),
         handler = std::make_shared<decltype(handler)>(std::move(handler))](const DeliveredEvent& delivered) {
            const auto& event = delivered.event;
            const bool isOwn = delivered.receiver == connection->process();
            if (isOwn || (events & tavrin::eventMask(event.type)) == 0) return;
            connection->post(pass.guarded([handler, event] { (*handler)(event); }));
        };
    return tavrin::together(side_.mac.devices.onWatched.subscribe(deliver),
                            Subscription([gate = std::move(gate)]() mutable { gate.reset(); }));
}

} // namespace mac_model
