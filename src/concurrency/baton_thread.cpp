#include "concurrency/baton_thread.h"

#include <cassert>
#include <utility>

namespace tavrin {

BatonThread::BatonThread() : thread_([this] { loop(); }) {}

BatonThread::~BatonThread() {
    {
        std::lock_guard lock(mutex_);
        assert(state_ == State::Idle);
        isEnding_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

void BatonThread::handTo(Holder holder, std::unique_lock<std::mutex>& lock) {
    const auto self = holder_;
    holder_ = holder;
    changed_.notify_all();
    changed_.wait(lock, [&] { return holder_ == self || isEnding_; });
}

BatonThread::State BatonThread::begin(Work work) {
    std::unique_lock lock(mutex_);
    assert(state_ == State::Idle);
    work_ = std::move(work);
    handTo(Holder::Thread, lock);
    return state_;
}

BatonThread::State BatonThread::goOn() {
    std::unique_lock lock(mutex_);
    assert(state_ == State::Yielded);
    handTo(Holder::Thread, lock);
    return state_;
}

void BatonThread::yield() {
    std::unique_lock lock(mutex_);
    state_ = State::Yielded;
    handTo(Holder::Owner, lock);
}

void BatonThread::loop() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return holder_ == Holder::Thread || isEnding_; });
    while (!isEnding_) {
        auto work = std::exchange(work_, nullptr);
        lock.unlock();
        work();
        work = nullptr;
        lock.lock();
        state_ = State::Idle;
        handTo(Holder::Owner, lock);
    }
}

} // namespace tavrin
