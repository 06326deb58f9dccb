#pragma once

#include "concurrency/signal.h"
#include "desktop/desktop_file.h"
#include "platform/accessibility.h"
#include "system/world_calls.h"
#include "vocabulary/vocabulary.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mac_model {

/// What an application allows macOS 27 to show in the menu bar.
struct VisibilityList {
    std::vector<int> systemItems;
    std::vector<std::string> bundleIdentifiers;

    /// The system's own items go by their number, all others by their owner's bundle.
    bool allows(std::string_view bundleIdentifier, std::optional<int> systemItem) const;
};

/// The service of macOS 27 that takes such lists: its answers, and the lists that are in force. Of each
/// process the newest that was accepted and has not ended is in force. A list ends when it is invalidated,
/// some time after its process has ended, and with the agent of the menu bar, which tells nobody.
class VisibilityLists {
  public:
    using Identifier = std::uint64_t;
    using Answer = std::function<void(std::optional<std::string> error)>;

    VisibilityLists(VirtualScheduler&, const DesktopFile&);
    VisibilityLists(const VisibilityLists&) = delete;
    VisibilityLists& operator=(const VisibilityLists&) = delete;

    // Settings, which count for what begins afterwards.
    VisibilityService answer;
    Seconds delay;    // from the request to the answer
    Seconds outlives; // from the end of a process to that of its lists

    /// The answer comes later than this call returns, on a thread of its own.
    Identifier activate(ProcessIdentifier, VisibilityList, Answer);
    void invalidate(Identifier);
    void processEnded(ProcessIdentifier);
    /// The agent has ended: nothing is in force, and what is under way is never answered.
    void agentEnded();

    /// The newest that was accepted and has not ended; null when nothing is restricted.
    const VisibilityList* inForce() const { return accepted_.empty() ? nullptr : &accepted_.back().list; }

    bool isShown(std::string_view bundleIdentifier, std::optional<int> systemItem) const;
    /// Null unless it is waiting for its answer or in force.
    const VisibilityList* find(Identifier) const;
    bool isPending(Identifier) const;

    std::uint64_t activations() const { return activations_; }

    Signal<> onChanged; // other lists are in force, or none
    Signal<Identifier> onActivating;

  private:
    struct Entry {
        Identifier identifier = 0;
        ProcessIdentifier process = 0;
        VisibilityList list;
    };

    bool isNewestOfProcess(const Entry&) const;
    void settle(Identifier, bool isAccepted, Answer);
    void tell(Answer, bool isAccepted);
    void dropAllOf(ProcessIdentifier);

    WorldCalls world_;
    std::unique_ptr<tavrin::SerialQueue> queue_;
    std::uint64_t activations_ = 0;
    std::uint64_t agentLives_ = 0;
    std::vector<Entry> pending_;
    std::vector<Entry> accepted_; // in the order of their acceptance
};

} // namespace mac_model
