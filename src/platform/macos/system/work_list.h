#pragma once

#include "concurrency/scheduler.h"

#include <deque>
#include <mutex>
#include <utility>

namespace tavrin::macos {

/// Work that waits for its turn. A block that was handed to a run loop or a dispatch queue can't be called
/// back, so blocks carry no work: each takes the piece that has waited longest, or nothing once the list has
/// ended. Any thread.
class WorkList {
  public:
    enum class Added { Yes, No };

    Added add(Work work) {
        std::lock_guard lock(mutex_);
        if (hasEnded_) return Added::No;
        works_.push_back(std::move(work));
        return Added::Yes;
    }

    /// Null when there is none.
    Work take() {
        std::lock_guard lock(mutex_);
        if (works_.empty()) return nullptr;
        auto work = std::move(works_.front());
        works_.pop_front();
        return work;
    }

    /// Drops what waits and takes no more.
    void end() {
        std::deque<Work> dropped; // destroyed after the lock is gone: what it owns may add work
        std::lock_guard lock(mutex_);
        hasEnded_ = true;
        dropped.swap(works_);
    }

  private:
    std::mutex mutex_;
    std::deque<Work> works_;
    bool hasEnded_ = false;
};

} // namespace tavrin::macos
