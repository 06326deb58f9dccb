#include "concurrency/scheduler_fixture.h"

#include <atomic>
#include <set>
#include <stdexcept>

namespace tavrin {
namespace {

template <class S>
using SchedulerContract = SchedulerFixture<S>;
TYPED_TEST_SUITE(SchedulerContract, Schedulers);

TYPED_TEST(SchedulerContract, mainWorkRunsByDueTimeThenByPosting) {
    auto& scheduler = this->scheduler;
    const auto tell = [&](std::string line) { return [this, line] { this->trace.add(line); }; };
    scheduler.callAfter(3ms, tell("late"));
    scheduler.callAfter(2ms, tell("early"));
    scheduler.post([&] {
        this->trace.add(scheduler.isMainThread() ? "first" : "on a wrong thread");
        scheduler.post(tell("third"));
    });
    scheduler.post(tell("second"));
    this->settle();
    EXPECT_EQ(this->trace.lines(), (Lines{"first", "second", "third", "early", "late"}));
}

TYPED_TEST(SchedulerContract, repeatingTimerKeepsItsStateAndMayCancelItself) {
    auto& scheduler = this->scheduler;
    auto timer = TimerIdentifier::None;
    auto token = std::make_shared<int>(0);
    timer = scheduler.callEvery(1ms, [&, token, count = 0]() mutable {
        this->trace.add(std::to_string(++count));
        if (count == 3) scheduler.cancelTimer(timer);
        ++*token; // what the work owns lives until the call is over
    });
    this->runUntil([&] { return *token == 3; });
    runFor(scheduler, 3ms);
    EXPECT_EQ(this->trace.lines(), (Lines{"1", "2", "3"}));
    EXPECT_EQ(token.use_count(), 1);
    scheduler.cancelTimer(timer);
    scheduler.cancelTimer(TimerIdentifier::None);
}

TYPED_TEST(SchedulerContract, droppedTimersMayCancelEachOther) {
    auto& scheduler = this->scheduler;
    auto first = TimerIdentifier::None;
    auto second = TimerIdentifier::None;
    const auto cancelBoth = [&] {
        scheduler.cancelTimer(first);
        scheduler.cancelTimer(second);
    };
    const auto owning = [&] {
        return [this, departure = std::make_shared<Departure>(cancelBoth)] { this->trace.add("fired"); };
    };
    first = scheduler.callAfter(1ms, owning());
    second = scheduler.callAfter(1ms, owning());
    scheduler.cancelTimer(first);
    this->settle();
    EXPECT_EQ(this->trace.lines(), Lines{});
}

TYPED_TEST(SchedulerContract, queueRunsOnePieceAfterTheOtherOffTheMainThread) {
    auto& scheduler = this->scheduler;
    const auto queue = scheduler.makeSerialQueue("org.example.queue");
    EXPECT_EQ(queue->label(), "org.example.queue");
    for (const auto* name : {"a", "b", "c"}) {
        queue->post([&, name] {
            this->trace.add(scheduler.isMainThread() ? "on the main thread" : name);
            pauseOnQueue(scheduler);
            this->trace.add(name);
        });
    }
    queue->post(
        [&] { scheduler.post([&] { this->trace.add(scheduler.isMainThread() ? "main" : "astray"); }); });
    this->settle();
    EXPECT_EQ(this->trace.lines(), (Lines{"a", "a", "b", "b", "c", "c", "main"}));
}

TYPED_TEST(SchedulerContract, dyingQueueDropsWhatHasNotBegunAndFinishesWhatHas) {
    auto& scheduler = this->scheduler;
    auto queue = scheduler.makeSerialQueue("org.example.dying");
    auto& dying = *queue;
    std::atomic<bool> hasBegun = false;
    std::atomic<bool> isDropped = false;
    queue->post([&] {
        hasBegun = true;
        while (!isDropped) pauseOnQueue(scheduler);
        dying.post([this] { this->trace.add("posted too late"); });
        this->trace.add("finished");
    });
    queue->post([this, departure = std::make_shared<Departure>([&] { isDropped = true; })] {
        this->trace.add("should be dropped");
    });
    this->runUntil([&] { return hasBegun.load(); });
    queue.reset();
    this->trace.add("gone");
    this->settle();
    EXPECT_EQ(this->trace.lines(), (Lines{"finished", "gone"}));
}

TYPED_TEST(SchedulerContract, concurrentPerformRunsEachShareOnceWhateverTheyThrow) {
    auto& scheduler = this->scheduler;
    const auto queue = scheduler.makeSerialQueue("org.example.caller");
    std::multiset<std::size_t> shares;
    std::mutex mutex;
    queue->post([&] {
        scheduler.concurrentPerform(40, [&](std::size_t share) {
            pauseOnQueue(scheduler);
            std::unique_lock lock(mutex);
            shares.insert(scheduler.isMainThread() ? 1000 : share);
            lock.unlock();
            if (share % 2 == 0) throw std::runtime_error("even");
        });
        scheduler.concurrentPerform(0, [](std::size_t) { FAIL(); });
        this->trace.add(std::to_string(shares.size()));
    });
    this->settle();
    EXPECT_EQ(this->trace.lines(), Lines{"40"});
    EXPECT_EQ(std::set<std::size_t>(shares.begin(), shares.end()).size(), 40U);
    EXPECT_EQ(*shares.rbegin(), 39U);
    EXPECT_EQ(this->faults.lines(), Lines(20, "even"));
}

TYPED_TEST(SchedulerContract, exceptionsOfWorkAreReported) {
    auto& scheduler = this->scheduler;
    const auto queue = scheduler.makeSerialQueue("org.example.faults");
    scheduler.post([] { throw std::runtime_error("posted"); });
    scheduler.callAfter(1ms, [] { throw std::logic_error("timer"); });
    queue->post([] { throw 42; });
    queue->post([&] { scheduler.post([this] { this->trace.add("goes on"); }); });
    this->settle();
    EXPECT_EQ(this->faults.sorted(), (Lines{"an exception that is no std::exception", "posted", "timer"}));
    EXPECT_EQ(this->trace.lines(), Lines{"goes on"});
}

TYPED_TEST(SchedulerContract, dyingSchedulerDropsWorkThatPostsAsItGoes) {
    auto owner = std::make_unique<TypeParam>();
    auto& dying = *owner;
    auto departure = std::make_shared<Departure>([&] {
        dying.cancelTimer(dying.callAfter(1ms, [] {}));
        dying.post([this] { this->trace.add("ran"); });
        this->trace.add("dropped");
    });
    dying.callAfter(1h, [departure = std::move(departure)] {});
    owner.reset();
    EXPECT_EQ(this->trace.lines(), Lines{"dropped"});
}

TEST(ThreadScheduler, stopsFromAnyThreadAndForgetsNoStop) {
    ThreadScheduler scheduler;
    const auto queue = scheduler.makeSerialQueue("org.example.stopping");
    int ran = 0;
    scheduler.callAfter(1ms, [&] {
        ++ran;
        queue->post([&] { scheduler.stop(); });
    });
    scheduler.run();
    EXPECT_EQ(ran, 1);
    scheduler.stop();
    scheduler.post([&] {
        ++ran;
        scheduler.stop();
    });
    scheduler.run();
    EXPECT_EQ(ran, 1);
    scheduler.run();
    EXPECT_EQ(ran, 2);
}

TEST(ThreadScheduler, settlesInSpiteOfRepeatingTimersButNotOfBusyQueues) {
    ThreadScheduler scheduler;
    scheduler.callEvery(1h, [] {});
    EXPECT_TRUE(scheduler.settle(1h));
    std::atomic<bool> mayEnd = false;
    const auto queue = scheduler.makeSerialQueue("org.example.busy");
    queue->post([&] {
        while (!mayEnd) std::this_thread::yield();
    });
    EXPECT_FALSE(scheduler.settle(2ms));
    mayEnd = true;
    EXPECT_TRUE(scheduler.settle(1h));
}

} // namespace
} // namespace tavrin
