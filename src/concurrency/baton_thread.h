#pragma once

#include "concurrency/scheduler.h"

#include <condition_variable>
#include <mutex>
#include <thread>

namespace tavrin {

/// A thread that runs only while its owner waits for it: the two hand one baton back and forth, so that their
/// steps follow each other in an order that does not depend on the machine.
class BatonThread {
  public:
    BatonThread();
    BatonThread(const BatonThread&) = delete;
    BatonThread& operator=(const BatonThread&) = delete;
    /// The thread must be idle.
    ~BatonThread();

    enum class State { Idle, Yielded };

    /// Owner: lets the thread run `work`, or go on with it, until it has ended (`Idle`) or yields.
    State begin(Work work);
    State goOn();

    /// Thread: hands the baton back and returns when the owner lets it go on.
    void yield();

    bool isCurrent() const { return std::this_thread::get_id() == thread_.get_id(); }

  private:
    enum class Holder { Owner, Thread };

    void loop();
    void handTo(Holder holder, std::unique_lock<std::mutex>& lock);

    std::mutex mutex_;
    std::condition_variable changed_;
    Holder holder_ = Holder::Owner;
    State state_ = State::Idle;
    bool isEnding_ = false;
    Work work_;
    std::thread thread_;
};

} // namespace tavrin
