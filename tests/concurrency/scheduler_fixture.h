#pragma once

#include "concurrency/thread_scheduler.h"
#include "concurrency/virtual_scheduler.h"

#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace tavrin {

using namespace std::chrono_literals;
using Lines = std::vector<std::string>;

/// A record of what happened, in order; any thread may write to it.
class Trace {
  public:
    void add(std::string line) {
        std::lock_guard lock(mutex_);
        lines_.push_back(std::move(line));
    }

    Lines lines() const {
        std::lock_guard lock(mutex_);
        return lines_;
    }

    Lines sorted() const {
        auto all = lines();
        std::ranges::sort(all);
        return all;
    }

  private:
    mutable std::mutex mutex_;
    Lines lines_;
};

/// Tells when it is destroyed.
class Departure {
  public:
    explicit Departure(std::function<void()> tell) : tell_(std::move(tell)) {}

    Departure(Departure&& other) noexcept : tell_(std::exchange(other.tell_, nullptr)) {}

    ~Departure() {
        if (tell_) tell_();
    }

  private:
    std::function<void()> tell_;
};

/// Tests of the promises that both schedulers make run on both.
using Schedulers = testing::Types<VirtualScheduler, ThreadScheduler>;

inline void runFor(VirtualScheduler& scheduler, Seconds duration) { scheduler.advance(duration); }

inline void runFor(ThreadScheduler& scheduler, Seconds duration) { scheduler.runFor(duration); }

inline void pauseOnQueue(VirtualScheduler& scheduler) { scheduler.spend(1ms); }

inline void pauseOnQueue(ThreadScheduler&) { std::this_thread::sleep_for(50us); }

template <class SchedulerType>
class SchedulerFixture : public testing::Test {
  protected:
    SchedulerFixture() {
        scheduler.onFault = [this](std::string_view what) { faults.add(std::string(what)); };
    }

    ~SchedulerFixture() override { EXPECT_EQ(scheduler.tasksAlive(), 0U); }

    /// Runs what is posted, without letting time pass.
    void turn() { runFor(scheduler, 0s); }

    void settle() { EXPECT_TRUE(scheduler.settle(5s)); }

    template <class Condition>
    void runUntil(Condition isMet) {
        for (int i = 0; i < 5000 && !isMet(); ++i) runFor(scheduler, 1ms);
        EXPECT_TRUE(isMet());
    }

    Trace trace;
    Trace faults;
    SchedulerType scheduler;
};

} // namespace tavrin
