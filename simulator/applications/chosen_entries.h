#pragma once

#include "concurrency/signal.h"
#include "concurrency/virtual_scheduler.h"
#include "vocabulary/vocabulary.h"

#include <string>
#include <utility>
#include <vector>

namespace mac_model {

/// A menu entry that ran.
struct ChosenEntry {
    Seconds time{0};
    std::string owner;             // bundle identifier
    std::string menu;              // the title in the menu bar, or the name of the status item
    std::vector<std::string> path; // titles from the outermost menu inwards
};

/// Which menu entries of other applications ran, oldest first.
class ChosenEntries {
  public:
    explicit ChosenEntries(const VirtualScheduler& scheduler) : scheduler_(scheduler) {}

    /// Notes an entry that runs now.
    void record(std::string owner, std::string menu, std::vector<std::string> path) {
        entries_.push_back({scheduler_.now(), std::move(owner), std::move(menu), std::move(path)});
        onRecorded.emit(entries_.back());
    }

    /// The entries since the last call.
    std::vector<ChosenEntry> drain() { return std::exchange(entries_, {}); }

    Signal<ChosenEntry> onRecorded;

  private:
    const VirtualScheduler& scheduler_;
    std::vector<ChosenEntry> entries_;
};

} // namespace mac_model
