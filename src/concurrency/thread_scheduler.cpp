#include "concurrency/thread_scheduler.h"

#include <algorithm>
#include <atomic>
#include <cassert>
#include <deque>
#include <limits>
#include <utility>
#include <vector>

namespace tavrin {

class ThreadQueue final : public SerialQueue {
  public:
    ThreadQueue(ThreadScheduler& scheduler, std::string label)
        : scheduler_(scheduler)
        , label_(std::move(label))
        , thread_([this] { loop(); }) {
        ++scheduler_.queuesAlive_;
    }

    ~ThreadQueue() override {
        assert(scheduler_.isMainThread());
        dropUnbegun();
        thread_.join();
        --scheduler_.queuesAlive_;
    }

    const std::string& label() const override { return label_; }

    void post(Work work) override {
        {
            std::lock_guard lock(mutex_);
            if (isEnding_) return;
            scheduler_.queueWorkAdded();
            works_.push_back(std::move(work));
        }
        changed_.notify_one();
    }

  private:
    void dropUnbegun() {
        std::deque<Work> dropped;
        {
            std::lock_guard lock(mutex_);
            isEnding_ = true;
            dropped.swap(works_);
        }
        changed_.notify_one();
        scheduler_.queueWorkEnded(dropped.size());
    }

    void loop() {
        while (auto work = next()) {
            runReportingFaults(scheduler_, work);
            work = nullptr;
            scheduler_.queueWorkEnded(1);
        }
    }

    Work next() {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return isEnding_ || !works_.empty(); });
        if (isEnding_) return nullptr;
        auto work = std::move(works_.front());
        works_.pop_front();
        return work;
    }

    ThreadScheduler& scheduler_;
    std::string label_;
    std::mutex mutex_; // guards the two below; taken before the scheduler's
    std::condition_variable changed_;
    std::deque<Work> works_;
    bool isEnding_ = false;
    std::thread thread_;
};

ThreadScheduler::~ThreadScheduler() {
    assert(queuesAlive_ == 0 && "queues end before their scheduler");
    // Dropped work may own objects that post and cancel while they are destroyed.
    timers_.clear();
    while (!events_.empty()) std::exchange(events_, {}).clear();
}

void ThreadScheduler::add(Seconds due, Event event) {
    const DueKey key{due.count(), nextSequence_++};
    if (event.timer != TimerIdentifier::None) timers_[event.timer] = key;
    events_.emplace(key, std::move(event));
}

TimerIdentifier ThreadScheduler::addTimer(Seconds delay, Event event) {
    assert(isMainThread());
    std::lock_guard lock(mutex_);
    event.timer = TimerIdentifier{nextTimer_++};
    const auto timer = event.timer;
    add(now() + std::max(delay, Seconds{0}), std::move(event));
    return timer;
}

void ThreadScheduler::post(Work work) {
    {
        std::lock_guard lock(mutex_);
        add(now(), {.work = std::move(work)});
    }
    changed_.notify_all();
}

TimerIdentifier ThreadScheduler::callAfter(Seconds delay, Work work) {
    return addTimer(delay, {.work = std::move(work)});
}

TimerIdentifier ThreadScheduler::callEvery(Seconds interval, Work work) {
    assert(interval > Seconds{0});
    return addTimer(interval, {.work = sharedWork(std::move(work)), .interval = interval});
}

void ThreadScheduler::cancelTimer(TimerIdentifier timer) {
    assert(isMainThread());
    std::map<DueKey, Event>::node_type dropped; // destroyed after the lock is gone
    std::lock_guard lock(mutex_);
    const auto found = timers_.find(timer);
    if (found == timers_.end()) return;
    dropped = events_.extract(found->second);
    timers_.erase(found);
}

std::unique_ptr<SerialQueue> ThreadScheduler::makeSerialQueue(std::string label) {
    assert(isMainThread());
    return std::make_unique<ThreadQueue>(*this, std::move(label));
}

void ThreadScheduler::concurrentPerform(std::size_t count, const std::function<void(std::size_t)>& body) {
    assert(!isMainThread());
    std::atomic<std::size_t> next = 0;
    const auto perform = [&] {
        for (auto share = next++; share < count; share = next++) {
            runReportingFaults(*this, [&] { body(share); });
        }
    };
    const std::size_t width = std::max(2U, std::thread::hardware_concurrency());
    std::vector<std::thread> threads(std::min(count, width));
    for (auto& thread : threads) thread = std::thread(perform);
    for (auto& thread : threads) thread.join();
}

void ThreadScheduler::run() {
    const auto isStopped = [this] { return std::exchange(stopRequested_, false); };
    runUntil(isStopped, Seconds{std::numeric_limits<double>::infinity()});
}

void ThreadScheduler::stop() {
    {
        std::lock_guard lock(mutex_);
        stopRequested_ = true;
    }
    changed_.notify_all();
}

void ThreadScheduler::runFor(Seconds duration) {
    runUntil([] { return false; }, now() + duration);
}

bool ThreadScheduler::settle(Seconds limit) {
    return runUntil([this] { return isSettled(); }, now() + limit);
}

bool ThreadScheduler::isSettled() const {
    const auto repeats = [](const auto& entry) { return entry.second.interval > Seconds{0}; };
    return queueWorkPending_ == 0 && std::ranges::all_of(events_, repeats);
}

bool ThreadScheduler::runUntil(const std::function<bool()>& isDone, Seconds deadline) {
    assert(isMainThread());
    constexpr Seconds waitMax{3600}; // far inside what the clock can count
    std::unique_lock lock(mutex_);
    while (!isDone()) {
        const auto time = now();
        const auto due = events_.empty() ? time + waitMax : Seconds{events_.begin()->first.due};
        if (due <= std::min(time, deadline)) {
            runFirst(lock);
        } else if (time >= deadline) {
            return false;
        } else {
            waitUntil(std::min({due, deadline, time + waitMax}), lock);
        }
    }
    return true;
}

void ThreadScheduler::waitUntil(Seconds time, std::unique_lock<std::mutex>& lock) {
    changed_.wait_until(lock, origin_ + std::chrono::ceil<Clock::duration>(time));
}

void ThreadScheduler::runFirst(std::unique_lock<std::mutex>& lock) {
    {
        auto node = events_.extract(events_.begin());
        auto& event = node.mapped();
        if (event.timer != TimerIdentifier::None) timers_.erase(event.timer);
        if (event.interval > Seconds{0})
            add(std::max(Seconds{node.key().due} + event.interval, now()), event);
        lock.unlock();
        runReportingFaults(*this, event.work);
    }
    lock.lock();
}

void ThreadScheduler::queueWorkAdded() {
    std::lock_guard lock(mutex_);
    ++queueWorkPending_;
}

void ThreadScheduler::queueWorkEnded(std::size_t count) {
    {
        std::lock_guard lock(mutex_);
        queueWorkPending_ -= count;
    }
    changed_.notify_all();
}

} // namespace tavrin
