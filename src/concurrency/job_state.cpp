#include "concurrency/job_state.h"

#include <cassert>
#include <utility>

namespace tavrin {

JobState::JobState(Scheduler& jobScheduler) : scheduler_(jobScheduler) { ++scheduler_.tasksAlive_; }

JobState::~JobState() {
    if (!isFinished_) --scheduler_.tasksAlive_;
}

void JobState::cancel() {
    if (isFinished_ || isCancelled_) return;
    const auto keepAlive = shared_from_this();
    isCancelled_ = true;
    if (isRunning_) return;
    if (!hasBegun_) {
        destroyFrame();
        end();
        return;
    }
    assert(waiter_ && "a job that has begun and is not running waits for something");
    std::exchange(waiter_, nullptr)->cutShort();
    assert(isFinished_ && "a cancelled job suspends no more");
}

void JobState::stopWaiting(Waiter& waiter) {
    if (waiter_ == &waiter) waiter_ = nullptr;
}

void JobState::resume(std::coroutine_handle<> coroutine) {
    const auto keepAlive = shared_from_this();
    isRunning_ = true;
    coroutine.resume();
    isRunning_ = false;
}

void JobState::begin(std::coroutine_handle<> root) {
    if (isFinished_) return;
    hasBegun_ = true;
    resume(root);
}

void JobState::rootFinished() noexcept {
    collectResult();
    end();
}

void JobState::end() noexcept {
    isFinished_ = true;
    --scheduler_.tasksAlive_;
    tellAwaiters();
}

} // namespace tavrin
