#pragma once

#include "platform/events.h"
#include "system/world_calls.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>

namespace mac_model {

/// A synthetic event on its way: to a tap, or to one process alone.
struct PostedEvent {
    tavrin::MouseEvent event;
    std::optional<tavrin::EventTap> tap;
    std::optional<tavrin::ProcessIdentifier> process;
};

/// A synthetic key on its way to one process.
struct PostedKey {
    tavrin::KeyEvent event;
    tavrin::ProcessIdentifier process = 0;
};

/// What the input of this Mac needs of those who have the pointer. None are set where nobody has one.
struct EventHooks {
    std::function<void(const PostedEvent&)> deliver;
    std::function<void(const PostedKey&)> deliverKey;
    std::function<tavrin::Point()> pointerLocation;
    std::function<void(tavrin::Point)> warpPointer;
    std::function<void()> hideCursor;
    std::function<void()> showCursor;
};

/// Where events enter the system: it counts them, and passes on those that processes post, in their order and
/// never within the call that posts them. Main thread.
class EventServer {
  public:
    explicit EventServer(tavrin::VirtualScheduler& scheduler) : world_(scheduler) {}

    EventServer(const EventServer&) = delete;
    EventServer& operator=(const EventServer&) = delete;

    void post(PostedEvent posted) {
        world_.after(tavrin::Seconds{0}, [this, posted = std::move(posted)] {
            if (hooks.deliver) hooks.deliver(posted);
        });
    }

    void post(PostedKey posted) {
        world_.after(tavrin::Seconds{0}, [this, posted] {
            if (hooks.deliverKey) hooks.deliverKey(posted);
        });
    }

    /// Notes an event of the person's devices or one that a process posted to a tap.
    void count(tavrin::MouseEventType type) { ++counts_[type]; }

    std::uint32_t eventCount(tavrin::MouseEventType type) const {
        const auto found = counts_.find(type);
        return found == counts_.end() ? 0 : found->second;
    }

    EventHooks hooks;

  private:
    WorldCalls world_;
    std::map<tavrin::MouseEventType, std::uint32_t> counts_;
};

} // namespace mac_model
