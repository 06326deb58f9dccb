#pragma once

#include "concurrency/signal.h"
#include "concurrency/task.h"

#include <memory>
#include <optional>
#include <type_traits>
#include <variant>

namespace tavrin {

namespace detail {

template <class T>
struct ResultValue {
    using Type = T;
};

template <>
struct ResultValue<void> {
    using Type = std::monostate;
};

template <class T>
class JobCore final : public JobState {
  public:
    using Value = typename ResultValue<T>::Type;

    JobCore(Scheduler& jobScheduler, Task<T> task) : JobState(jobScheduler), root_(task.release()) {
        root_.promise().job = this;
    }

    ~JobCore() override { destroyFrame(); }

    void begin() { JobState::begin(root_); }

    std::optional<Value> result;
    Signal<> finished;

  private:
    void collectResult() noexcept override {
        runReportingFaults(scheduler(), [this] {
            if constexpr (std::is_void_v<T>) {
                root_.promise().take();
                result.emplace();
            } else {
                result.emplace(root_.promise().take());
            }
        });
        if (isCancelled()) result.reset();
        destroyFrame();
    }

    void destroyFrame() noexcept override {
        if (auto root = std::exchange(root_, {})) root.destroy();
    }

    /// Awaiters go on in a turn of their own, never inside the end of somebody else's job.
    void tellAwaiters() noexcept override {
        if (!finished.hasSubscribers()) return;
        auto self = std::static_pointer_cast<JobCore>(shared_from_this());
        scheduler().post([self] { self->finished.emit(); });
    }

    typename Task<T>::Handle root_;
};

template <class T>
class JobResultAwaiter final : public Waiter {
  public:
    using Value = typename ResultValue<T>::Type;

    explicit JobResultAwaiter(std::shared_ptr<JobCore<T>> awaited) : awaited_(std::move(awaited)) {}

    JobResultAwaiter(const JobResultAwaiter&) = delete;
    JobResultAwaiter& operator=(const JobResultAwaiter&) = delete;

    ~JobResultAwaiter() {
        if (own_) own_->stopWaiting(*this);
    }

    bool await_ready() const { return !awaited_ || awaited_->isFinished(); }

    template <class Promise>
    bool await_suspend(std::coroutine_handle<Promise> handle) {
        if (handle.promise().job->isCancelled()) {
            wasCutShort_ = true;
            return false;
        }
        own_ = handle.promise().job;
        handle_ = handle;
        own_->startWaiting(*this);
        subscription_ = awaited_->finished.subscribe([this] { goOn(); });
        return true;
    }

    std::optional<Value> await_resume() {
        if (wasCutShort_ || !awaited_) return std::nullopt;
        return awaited_->result;
    }

    void cutShort() override {
        wasCutShort_ = true;
        goOn();
    }

  private:
    void goOn() {
        subscription_.cancel();
        auto* own = std::exchange(own_, nullptr);
        own->stopWaiting(*this);
        own->resume(handle_);
    }

    std::shared_ptr<JobCore<T>> awaited_;
    JobState* own_ = nullptr;
    std::coroutine_handle<> handle_;
    Subscription subscription_;
    bool wasCutShort_ = false;
};

} // namespace detail

/// Holds a running task in a field of its owner. Replacing or dropping the handle cancels the job, and when
/// that returns the job has tidied up and its frame is gone: declare the field after everything the job uses.
/// (A job that drops its own handle while it runs goes on to its end, cancelled.)
template <class T = void>
class [[nodiscard]] Job {
  public:
    Job() = default;
    Job(Job&&) noexcept = default;

    Job& operator=(Job&& other) noexcept {
        if (this == &other) return *this;
        if (auto old = std::exchange(core_, std::move(other.core_))) old->cancel();
        return *this;
    }

    ~Job() { cancel(); }

    void cancel() {
        if (auto core = core_) core->cancel();
    }

    bool isRunning() const { return core_ && !core_->isFinished(); }

    /// Awaits the end of the job from another task: its result, or none when the job was cancelled or failed,
    /// or when the awaiting job itself was cut short (which leaves this one running). Several may wait at
    /// once.
    detail::JobResultAwaiter<T> result() const { return detail::JobResultAwaiter<T>(core_); }

    /// Begins `task` in a turn of its own, after everything posted before.
    static Job start(Scheduler& scheduler, Task<T> task) {
        Job job;
        job.core_ = std::make_shared<detail::JobCore<T>>(scheduler, std::move(task));
        scheduler.post([core = std::weak_ptr(job.core_)] {
            if (auto alive = core.lock()) alive->begin();
        });
        return job;
    }

  private:
    std::shared_ptr<detail::JobCore<T>> core_;
};

template <class T>
Job<T> start(Scheduler& scheduler, Task<T> task) {
    return Job<T>::start(scheduler, std::move(task));
}

} // namespace tavrin
