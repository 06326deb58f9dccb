#include "concurrency/waits.h"

namespace tavrin {

void SleepAwaiter::wait(JobState& job, std::coroutine_handle<> handle) {
    job_ = &job;
    handle_ = handle;
    job.startWaiting(*this);
    timer_ = job.scheduler().callAfter(duration_, [this] { goOn(Wake::Due); });
}

void SleepAwaiter::cutShort() { goOn(Wake::CutShort); }

void SleepAwaiter::goOn(Wake wake) {
    auto* job = job_;
    wake_ = wake;
    unhook();
    job->resume(handle_);
}

void SleepAwaiter::unhook() {
    if (!job_) return;
    job_->scheduler().cancelTimer(std::exchange(timer_, TimerIdentifier::None));
    std::exchange(job_, nullptr)->stopWaiting(*this);
}

} // namespace tavrin
