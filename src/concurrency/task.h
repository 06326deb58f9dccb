#pragma once

#include "concurrency/caught_exception.h"
#include "concurrency/job_state.h"

#include <coroutine>
#include <exception>
#include <optional>
#include <utility>

namespace tavrin {

/// A coroutine on the main thread. It does nothing until it is awaited by another task or started as a job
/// (job.h); the task that awaits it lends it its job, so that one cancellation reaches the innermost wait.
///
/// Cancellation is cooperative: the wait in progress ends at once and says so, every later wait ends without
/// suspending, and the coroutine is expected to tidy up and return. Keep what outlives a wait by value.
template <class T = void>
class Task;

namespace detail {

class TaskPromiseBase {
  public:
    std::suspend_always initial_suspend() const noexcept { return {}; }

    struct FinalAwaiter {
        bool await_ready() const noexcept { return false; }

        template <class Promise>
        std::coroutine_handle<> await_suspend(std::coroutine_handle<Promise> self) const noexcept {
            auto& promise = self.promise();
            if (promise.continuation) return promise.continuation;
            promise.job->rootFinished();
            return std::noop_coroutine();
        }

        void await_resume() const noexcept {}
    };

    FinalAwaiter final_suspend() const noexcept { return {}; }

    void unhandled_exception() noexcept { exception = caughtException(); }

    JobState* job = nullptr;
    std::coroutine_handle<> continuation;
    std::exception_ptr exception;
};

template <class T>
class TaskPromise : public TaskPromiseBase {
  public:
    Task<T> get_return_object() noexcept;

    template <class U = T>
    void return_value(U&& value) {
        result.emplace(std::forward<U>(value));
    }

    T take() {
        if (exception) std::rethrow_exception(exception);
        return std::move(*result);
    }

    std::optional<T> result;
};

template <>
class TaskPromise<void> : public TaskPromiseBase {
  public:
    Task<void> get_return_object() noexcept;

    void return_void() const noexcept {}

    void take() const {
        if (exception) std::rethrow_exception(exception);
    }
};

} // namespace detail

template <class T>
class [[nodiscard]] Task {
  public:
    using promise_type = detail::TaskPromise<T>;
    using Handle = std::coroutine_handle<promise_type>;

    explicit Task(Handle handle) noexcept : handle_(handle) {}

    Task(Task&& other) noexcept : handle_(std::exchange(other.handle_, {})) {}

    Task& operator=(Task&&) = delete;

    ~Task() {
        if (handle_) handle_.destroy();
    }

    Handle release() noexcept { return std::exchange(handle_, {}); }

    struct Awaiter {
        Handle child;

        bool await_ready() const noexcept { return false; }

        template <class Promise>
        Handle await_suspend(std::coroutine_handle<Promise> parent) noexcept {
            child.promise().job = parent.promise().job;
            child.promise().continuation = parent;
            return child;
        }

        T await_resume() { return child.promise().take(); }
    };

    /// The awaited task outlives the wait: it is a temporary of the awaiting statement.
    Awaiter operator co_await() && noexcept { return Awaiter{handle_}; }

  private:
    Handle handle_;
};

namespace detail {

template <class T>
Task<T> TaskPromise<T>::get_return_object() noexcept {
    return Task<T>(std::coroutine_handle<TaskPromise<T>>::from_promise(*this));
}

inline Task<void> TaskPromise<void>::get_return_object() noexcept {
    return Task<void>(std::coroutine_handle<TaskPromise<void>>::from_promise(*this));
}

} // namespace detail

} // namespace tavrin
