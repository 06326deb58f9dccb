#pragma once

#include "concurrency/due_work.h"
#include "concurrency/scheduler.h"

#include <chrono>
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace tavrin {

/// A scheduler in real time: the steady clock, a thread for each queue, and as main thread the one that made
/// the scheduler, which lends itself in `run`, `runFor` and `settle`. Work of the main thread runs in the
/// order of (due, posted). What has not run when the scheduler is destroyed is dropped; its queues end before
/// it.
class ThreadScheduler final : public Scheduler {
  public:
    ThreadScheduler() = default;
    ~ThreadScheduler() override;

    Seconds now() const override { return Clock::now() - origin_; }

    bool isMainThread() const override { return std::this_thread::get_id() == mainThread_; }

    void post(Work work) override;
    TimerIdentifier callAfter(Seconds delay, Work work) override;
    TimerIdentifier callEvery(Seconds interval, Work work) override;
    void cancelTimer(TimerIdentifier timer) override;
    std::unique_ptr<SerialQueue> makeSerialQueue(std::string label) override;
    void concurrentPerform(std::size_t count, const std::function<void(std::size_t)>& body) override;

    /// Runs what falls due until `stop`. Main thread.
    void run();
    /// Lets `run` return after the piece of work in progress; with none running, lets the next `run` return
    /// at once. Any thread.
    void stop();

    /// Runs all that falls due within `duration`. Main thread.
    void runFor(Seconds duration);

    /// Runs until the queues rest and nothing is left to do but repeating timers, or until `limit` has
    /// passed; says whether it settled. Main thread.
    bool settle(Seconds limit);

  private:
    friend class ThreadQueue;
    using Clock = std::chrono::steady_clock;

    struct Event {
        Work work;
        Seconds interval{0}; // of a repeating timer
        TimerIdentifier timer = TimerIdentifier::None;
    };

    void add(Seconds due, Event event);
    TimerIdentifier addTimer(Seconds delay, Event event);
    bool runUntil(const std::function<bool()>& isDone, Seconds deadline);
    void runFirst(std::unique_lock<std::mutex>& lock);
    void waitUntil(Seconds time, std::unique_lock<std::mutex>& lock);
    bool isSettled() const;
    void queueWorkAdded();
    void queueWorkEnded(std::size_t count);

    const std::thread::id mainThread_ = std::this_thread::get_id();
    const Clock::time_point origin_ = Clock::now();
    std::size_t queuesAlive_ = 0; // main thread

    std::mutex mutex_; // guards all below
    std::condition_variable changed_;
    std::uint64_t nextSequence_ = 1;
    std::uint64_t nextTimer_ = 1;
    std::map<DueKey, Event> events_;
    std::map<TimerIdentifier, DueKey> timers_;
    std::size_t queueWorkPending_ = 0;
    bool stopRequested_ = false;
};

} // namespace tavrin
