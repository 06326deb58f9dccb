#pragma once

#include "concurrency/caught_exception.h"
#include "concurrency/job_state.h"

#include <atomic>
#include <coroutine>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

namespace tavrin {

enum class Wake { Due, CutShort };

class [[nodiscard]] SleepAwaiter final : public Waiter {
  public:
    explicit SleepAwaiter(Seconds duration) : duration_(duration) {}

    SleepAwaiter(const SleepAwaiter&) = delete;
    SleepAwaiter& operator=(const SleepAwaiter&) = delete;

    ~SleepAwaiter() { unhook(); }

    bool await_ready() const { return false; }

    template <class Promise>
    bool await_suspend(std::coroutine_handle<Promise> handle) {
        if (handle.promise().job->isCancelled()) {
            wake_ = Wake::CutShort;
            return false;
        }
        wait(*handle.promise().job, handle);
        return true;
    }

    [[nodiscard]] Wake await_resume() const { return wake_; }

    void cutShort() override;

  private:
    void wait(JobState& job, std::coroutine_handle<> handle);
    void goOn(Wake wake);
    void unhook();

    Seconds duration_;
    JobState* job_ = nullptr;
    std::coroutine_handle<> handle_;
    TimerIdentifier timer_ = TimerIdentifier::None;
    Wake wake_ = Wake::Due;
};

/// `co_await sleepFor(0.5s)`: waits in the awaiting job; says whether the wait was cut short by cancellation.
inline SleepAwaiter sleepFor(Seconds duration) { return SleepAwaiter(duration); }

class [[nodiscard]] CancellationQuery {
  public:
    bool await_ready() const { return false; }

    template <class Promise>
    bool await_suspend(std::coroutine_handle<Promise> handle) {
        answer_ = handle.promise().job->isCancelled();
        return false;
    }

    [[nodiscard]] bool await_resume() const { return answer_; }

  private:
    bool answer_ = false;
};

/// `co_await isCancelled()`: whether the awaiting job was cancelled. Never suspends.
inline CancellationQuery isCancelled() { return {}; }

/// Tells background work that nobody waits for its result any more. Any thread.
class AbandonFlag {
  public:
    void raise() { raised_->store(true, std::memory_order_relaxed); }

    bool isRaised() const { return raised_->load(std::memory_order_relaxed); }

  private:
    std::shared_ptr<std::atomic<bool>> raised_ = std::make_shared<std::atomic<bool>>(false);
};

template <class Function>
class [[nodiscard]] RunOnAwaiter final : public Waiter {
  public:
    using Value = std::invoke_result_t<Function&, const AbandonFlag&>;

    RunOnAwaiter(SerialQueue& queue, Function function) : queue_(queue), function_(std::move(function)) {}

    RunOnAwaiter(const RunOnAwaiter&) = delete;
    RunOnAwaiter& operator=(const RunOnAwaiter&) = delete;

    ~RunOnAwaiter() { unhook(); }

    bool await_ready() const { return false; }

    template <class Promise>
    bool await_suspend(std::coroutine_handle<Promise> handle) {
        if (handle.promise().job->isCancelled()) return false;
        job_ = handle.promise().job;
        handle_ = handle;
        job_->startWaiting(*this);
        shared_ = std::make_shared<Shared>();
        shared_->waiter = this;
        queue_.post([ticket = std::make_shared<Ticket>(job_->scheduler(), shared_),
                     function = std::optional(std::move(function_))]() mutable {
            if (!ticket->shared->abandoned.isRaised()) ticket->shared->run(*function);
            function.reset();
            ticket.reset();
        });
        return true;
    }

    [[nodiscard]] std::optional<Value> await_resume() {
        if (!shared_ || wasCutShort_) return std::nullopt;
        if (shared_->exception) std::rethrow_exception(shared_->exception);
        return std::move(shared_->value);
    }

    void cutShort() override {
        wasCutShort_ = true;
        shared_->abandoned.raise();
        goOn();
    }

  private:
    struct Shared {
        RunOnAwaiter* waiter = nullptr; // main thread
        AbandonFlag abandoned;
        std::optional<Value> value;
        std::exception_ptr exception;

        void run(Function& function) noexcept {
            try {
                value.emplace(function(std::as_const(abandoned)));
            } catch (...) {
                exception = caughtException();
            }
        }
    };

    /// Goes with the work and wakes the waiter when it is gone, whether the work has run or its queue dropped
    /// it.
    struct Ticket {
        Ticket(Scheduler& jobScheduler, std::shared_ptr<Shared> sharedState)
            : scheduler(jobScheduler)
            , shared(std::move(sharedState)) {}

        Ticket(const Ticket&) = delete;
        Ticket& operator=(const Ticket&) = delete;

        ~Ticket() {
            // Moved, so that the last owner of the result is on the main thread.
            scheduler.post([state = std::move(shared)] {
                if (state->waiter) state->waiter->goOn();
            });
        }

        Scheduler& scheduler;
        std::shared_ptr<Shared> shared;
    };

    void goOn() {
        auto* job = job_;
        unhook();
        job->resume(handle_);
    }

    void unhook() {
        if (!job_) return;
        shared_->waiter = nullptr;
        std::exchange(job_, nullptr)->stopWaiting(*this);
    }

    SerialQueue& queue_;
    Function function_;
    JobState* job_ = nullptr;
    std::coroutine_handle<> handle_;
    std::shared_ptr<Shared> shared_;
    bool wasCutShort_ = false;
};

/// `co_await runOn(queue, function)`: runs `function(const AbandonFlag&)` on the queue and gives its result,
/// or none when the wait was cut short (the flag is raised and the late result is dropped on the main thread)
/// or the queue was destroyed before the function began. The wait throws what the function throws. The
/// function owns all it uses, or uses what outlives the queue; it is gone before the wait ends: destroyed on
/// the queue's thread when it has run.
template <class Function>
RunOnAwaiter<Function> runOn(SerialQueue& queue, Function function) {
    return RunOnAwaiter<Function>(queue, std::move(function));
}

} // namespace tavrin
