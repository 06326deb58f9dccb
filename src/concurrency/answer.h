#pragma once

#include "concurrency/scheduler.h"
#include "concurrency/task.h"
#include "concurrency/waits.h"

#include <atomic>
#include <memory>
#include <optional>
#include <utility>

namespace tavrin {

/// A value that may come from any thread, at any time, more than once or never. The first one counts; later
/// ones, and those after the wait has ended, are dropped. Copies are the same answer. One task waits for it.
template <class T>
class Answer {
    struct State;

  public:
    explicit Answer(Scheduler& scheduler) : state_(std::make_shared<State>(scheduler)) {}

    /// Any thread; also when the scheduler has gone, if the wait has ended by then.
    void give(T value) const {
        if (state_->isClaimed.exchange(true)) return;
        state_->scheduler.post([state = state_, value = std::move(value)]() mutable {
            state->value.emplace(std::move(value));
            if (state->waiter) state->waiter->goOn();
        });
    }

    class [[nodiscard]] Awaiter final : public Waiter {
      public:
        explicit Awaiter(std::shared_ptr<State> state) : state_(std::move(state)) {}

        Awaiter(const Awaiter&) = delete;
        Awaiter& operator=(const Awaiter&) = delete;

        ~Awaiter() {
            unhook();
            state_->isClaimed = true;
        }

        bool await_ready() const { return state_->value.has_value(); }

        template <class Promise>
        bool await_suspend(std::coroutine_handle<Promise> handle) {
            if (handle.promise().job->isCancelled()) return false;
            job_ = handle.promise().job;
            handle_ = handle;
            state_->waiter = this;
            job_->startWaiting(*this);
            return true;
        }

        [[nodiscard]] std::optional<T> await_resume() { return std::exchange(state_->value, std::nullopt); }

        void cutShort() override { goOn(); }

        void goOn() {
            auto* job = job_;
            unhook();
            job->resume(handle_);
        }

      private:
        void unhook() {
            if (!job_) return;
            state_->waiter = nullptr;
            std::exchange(job_, nullptr)->stopWaiting(*this);
        }

        std::shared_ptr<State> state_;
        JobState* job_ = nullptr;
        std::coroutine_handle<> handle_;
    };

    /// `co_await answer.wait()`: the value, or none when the wait was cut short.
    Awaiter wait() const { return Awaiter(state_); }

  private:
    struct State {
        explicit State(Scheduler& answerScheduler) : scheduler(answerScheduler) {}

        Scheduler& scheduler;
        std::atomic<bool> isClaimed = false;
        std::optional<T> value; // main thread, as is the waiter
        Awaiter* waiter = nullptr;
    };

    std::shared_ptr<State> state_;
};

} // namespace tavrin
