#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace tavrin {

/// Durations and times of the program. A time counts from an origin that the scheduler chooses and never
/// jumps.
using Seconds = std::chrono::duration<double>;

using Work = std::function<void()>;

enum class TimerIdentifier : std::uint64_t { None = 0 };

/// Runs work one piece after the other, in the order of posting, off the main thread.
///
/// Destroying a queue, on the main thread, drops the work that has not begun and then waits for the piece in
/// progress, so that work may refer to whatever outlives its queue. Exceptions that leave a piece of work are
/// reported, not passed on.
class SerialQueue {
  public:
    virtual ~SerialQueue() = default;
    virtual const std::string& label() const = 0;
    /// Any thread.
    virtual void post(Work work) = 0;
};

/// Time, the main thread and the queues. Everything in the program that waits, waits here; nothing else tells
/// the time or makes a thread. One scheduler is handed down to all who need it.
class Scheduler {
  public:
    Scheduler() = default;
    Scheduler(const Scheduler&) = delete;
    Scheduler& operator=(const Scheduler&) = delete;
    virtual ~Scheduler() = default;

    /// Monotonic time. Any thread.
    virtual Seconds now() const = 0;
    virtual bool isMainThread() const = 0;

    /// Runs `work` on the main thread, after everything posted before it. Any thread.
    virtual void post(Work work) = 0;

    /// Run `work` on the main thread once after `delay`, or every `interval`. Main thread.
    virtual TimerIdentifier callAfter(Seconds delay, Work work) = 0;
    virtual TimerIdentifier callEvery(Seconds interval, Work work) = 0;
    /// Afterwards the timer's work never runs. Unknown and finished timers are fine. Main thread.
    virtual void cancelTimer(TimerIdentifier timer) = 0;

    /// The label names the queue in traces and debuggers, in reverse domain form. Main thread.
    virtual std::unique_ptr<SerialQueue> makeSerialQueue(std::string label) = 0;

    /// Runs `body(0)` … `body(count - 1)` concurrently and returns when all have ended. Off the main thread
    /// only: the caller blocks.
    virtual void concurrentPerform(std::size_t count, const std::function<void(std::size_t)>& body) = 0;

    /// Jobs that were started and have not ended. Main thread.
    std::size_t tasksAlive() const { return tasksAlive_; }

    /// Told of an exception that would have left a job or a piece of work; by default such faults are
    /// dropped. The handler runs on the thread of the fault.
    std::function<void(std::string_view what)> onFault;

    void reportFault(std::string_view what) const {
        if (onFault) onFault(what);
    }

  private:
    friend class JobState;
    std::size_t tasksAlive_ = 0;
};

/// Calls `work` and turns an exception that leaves it into a report to `scheduler`.
void runReportingFaults(const Scheduler& scheduler, const Work& work) noexcept;

} // namespace tavrin
