#pragma once

#include "discovery/accessibility_menu_bar_scanner.h"

#include <cstddef>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace tavrin {

/// One slot for each probed application, filled from any thread in any order and read in the order of the
/// slots.
class ExtrasPresenceResults {
  public:
    explicit ExtrasPresenceResults(std::size_t count) : slots_(count) {}

    void fill(std::size_t slot, ExtrasMenuBarPresence presence) {
        const std::lock_guard guard(lock_);
        slots_[slot] = std::move(presence);
    }

    std::vector<ExtrasMenuBarPresence> filled() const {
        const std::lock_guard guard(lock_);
        std::vector<ExtrasMenuBarPresence> present;
        for (const auto& slot : slots_) {
            if (slot) present.push_back(*slot);
        }
        return present;
    }

  private:
    mutable std::mutex lock_;
    std::vector<std::optional<ExtrasMenuBarPresence>> slots_;
};

} // namespace tavrin
