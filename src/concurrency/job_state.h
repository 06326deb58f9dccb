#pragma once

#include "concurrency/scheduler.h"

#include <coroutine>
#include <memory>

namespace tavrin {

/// The innermost wait of a job, as its cancellation sees it.
class Waiter {
  public:
    /// Unhooks from what it waits for and resumes the coroutine with the news that it was cut short.
    virtual void cutShort() = 0;

  protected:
    ~Waiter() = default;
};

/// The state that all coroutines of one job share.
class JobState : public std::enable_shared_from_this<JobState> {
  public:
    explicit JobState(Scheduler& jobScheduler);
    JobState(const JobState&) = delete;
    JobState& operator=(const JobState&) = delete;
    virtual ~JobState();

    Scheduler& scheduler() const { return scheduler_; }

    bool isCancelled() const { return isCancelled_; }

    bool isFinished() const { return isFinished_; }

    /// Ends the job: one that has not begun never does, one that waits is resumed at once and has ended when
    /// this returns, one that is running (it cancels itself) goes on to its end without any further wait.
    void cancel();

    void startWaiting(Waiter& waiter) { waiter_ = &waiter; }

    void stopWaiting(Waiter& waiter);

    /// Every wait resumes its coroutine through here, so that the job knows when it is on the stack.
    void resume(std::coroutine_handle<> coroutine);

    void rootFinished() noexcept;

  protected:
    /// Takes the result out of the root coroutine and destroys its frame, or only destroys it.
    virtual void collectResult() noexcept = 0;
    virtual void destroyFrame() noexcept = 0;
    virtual void tellAwaiters() noexcept = 0;

    void begin(std::coroutine_handle<> root);

  private:
    void end() noexcept;

    Scheduler& scheduler_;
    Waiter* waiter_ = nullptr;
    bool hasBegun_ = false;
    bool isRunning_ = false;
    bool isCancelled_ = false;
    bool isFinished_ = false;
};

} // namespace tavrin
