#pragma once

#include "desktop/desktop_file.h"
#include "vocabulary/vocabulary.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace mac_model {

/// What an application allows macOS 27 to show in the menu bar.
struct VisibilityList {
    std::vector<int> systemItems;
    std::vector<std::string> bundleIdentifiers;
};

/// The service of macOS 27 that takes such lists: its answers, and the list that is in force.
class VisibilityLists {
  public:
    using Identifier = std::uint64_t;
    using Answer = std::function<void(std::optional<std::string> error)>;

    VisibilityLists(VirtualScheduler& scheduler, VisibilityService answerAtStart)
        : answer(answerAtStart)
        , scheduler_(scheduler) {}

    VisibilityLists(const VisibilityLists&) = delete;
    VisibilityLists& operator=(const VisibilityLists&) = delete;

    VisibilityService answer;
    Seconds delay{0.25}; // from the request to the answer

    /// The answer comes from the world, later than this call returns.
    Identifier activate(VisibilityList, Answer);
    void invalidate(Identifier);
    void invalidateAll();

    /// The newest that was accepted and has not ended; null when nothing is restricted.
    const VisibilityList* inForce() const { return accepted_.empty() ? nullptr : &accepted_.back().list; }

    std::uint64_t activations() const { return activations_; }

    Signal<> onChanged; // another list is in force, or none

  private:
    struct Entry {
        Identifier identifier;
        VisibilityList list;
    };

    void settle(Entry, const Answer&);

    VirtualScheduler& scheduler_;
    std::uint64_t activations_ = 0;
    std::vector<Identifier> pending_;
    std::vector<Entry> accepted_; // in the order of their acceptance
};

} // namespace mac_model
