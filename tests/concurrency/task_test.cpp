#include "concurrency/job.h"
#include "concurrency/scheduler_fixture.h"
#include "concurrency/waits.h"

#include <atomic>
#include <stdexcept>
#include <string>
#include <unwind.h>

namespace tavrin {
namespace {

template <class S>
class TaskContract : public SchedulerFixture<S> {
  protected:
    /// Work that only abandoning ends.
    auto untilAbandoned() {
        return [this](const AbandonFlag& abandoned) {
            ++begun;
            while (!abandoned.isRaised()) pauseOnQueue(this->scheduler);
            this->trace.add("abandoned");
            return std::make_shared<Departure>([this] {
                this->trace.add(this->scheduler.isMainThread() ? "late result dropped" : "dropped astray");
            });
        };
    }

    std::atomic<int> begun = 0;
    std::unique_ptr<SerialQueue> queue = this->scheduler.makeSerialQueue("org.example.task");
};

TYPED_TEST_SUITE(TaskContract, Schedulers);

Task<bool> cutShortSleeping() { co_return co_await sleepFor(1h) == Wake::CutShort; }

Task<> sleepForever() { (void)co_await sleepFor(1e6h); }

template <class Function>
Task<bool> cutShortOnQueue(SerialQueue* queue, Function function) {
    const auto result = co_await runOn(*queue, std::move(function));
    co_return !result.has_value();
}

Task<bool> cutShortAwaiting(const Job<>* awaited) {
    const auto result = co_await awaited->result();
    co_return !result.has_value();
}

Task<bool> nested(int depth, Task<bool> wait) {
    if (depth == 0) co_return co_await std::move(wait);
    const bool result = co_await nested(depth - 1, std::move(wait));
    co_return result;
}

/// Tells how `wait` ended; the same wait is expected to end at once when it is repeated.
Task<> telling(Trace* trace, std::function<Task<bool>()> wait) {
    const Departure departure([trace] { trace->add("tidied up"); });
    const bool wasCutShort = co_await wait();
    trace->add(wasCutShort ? "cut short" : "not cut short");
    const bool isCutShortAgain = co_await wait();
    const bool isAware = co_await isCancelled();
    if (!isCutShortAgain || !isAware) trace->add("not cancelled");
}

TYPED_TEST(TaskContract, everyWaitEndsInsideTheDeathOfItsOwner) {
    auto awaited = start(this->scheduler, sleepForever());

    struct Case {
        int worksOnQueue;
        std::function<Task<bool>()> wait;
    };

    const std::vector<Case> cases = {
        {0, [] { return cutShortSleeping(); }},
        {0, [&] { return cutShortAwaiting(&awaited); }},
        {1, [&] { return cutShortOnQueue(this->queue.get(), this->untilAbandoned()); }},
    };
    for (const auto& [worksOnQueue, wait] : cases) {
        for (const int depth : {0, 3}) {
            Trace told;
            std::optional owner =
                start(this->scheduler, telling(&told, [=] { return nested(depth, wait()); }));
            this->turn();
            this->begun -= worksOnQueue;
            this->runUntil([&] { return this->begun == 0; });
            EXPECT_EQ(told.lines(), Lines{});
            owner.reset();
            EXPECT_EQ(told.lines(), (Lines{"cut short", "tidied up"}));
            EXPECT_EQ(this->scheduler.tasksAlive(), 1U);
        }
    }
    EXPECT_TRUE(awaited.isRunning());
    awaited.cancel();
    awaited.cancel();
    EXPECT_FALSE(awaited.isRunning());
    this->settle();
    EXPECT_EQ(this->trace.sorted(),
              (Lines{"abandoned", "abandoned", "late result dropped", "late result dropped"}));
}

TYPED_TEST(TaskContract, cancelledBeforeItBeginsItNeverDoes) {
    const auto owning = [](Trace* trace, Departure) -> Task<> {
        trace->add("begun");
        co_return;
    };
    auto job = start(this->scheduler,
                     owning(&this->trace, Departure([this] { this->trace.add("arguments gone"); })));
    EXPECT_EQ(this->scheduler.tasksAlive(), 1U);
    job.cancel();
    EXPECT_EQ(this->scheduler.tasksAlive(), 0U);
    this->settle();
    EXPECT_EQ(this->trace.lines(), Lines{"arguments gone"});
}

Task<> restart(Job<>* own, Scheduler* scheduler, Trace* trace) {
    const Departure departure([trace] { trace->add("old gone"); });
    *own = start(*scheduler, telling(trace, cutShortSleeping));
    const bool isAware = co_await isCancelled();
    const auto wake = co_await sleepFor(1h);
    if (isAware && wake == Wake::CutShort) trace->add("old goes on, cancelled");
}

TYPED_TEST(TaskContract, replacedWhileItWaitsOrRuns) {
    auto job = start(this->scheduler, telling(&this->trace, cutShortSleeping));
    this->turn();
    job = start(this->scheduler, restart(&job, &this->scheduler, &this->trace));
    this->trace.add("replaced");
    this->turn();
    this->turn();
    EXPECT_TRUE(job.isRunning());
    EXPECT_EQ(this->scheduler.tasksAlive(), 1U);
    job = {};
    EXPECT_EQ(this->trace.lines(), (Lines{"cut short", "tidied up", "replaced", "old goes on, cancelled",
                                          "old gone", "cut short", "tidied up"}));
}

TYPED_TEST(TaskContract, jobMayDestroyItsOwner) {
    using Owner = std::unique_ptr<Job<>>;
    const auto destroying = [](Owner* owner, Trace* trace) -> Task<> {
        (void)co_await sleepFor(1ms);
        owner->reset();
        const auto wake = co_await sleepFor(1h);
        trace->add(wake == Wake::CutShort ? "outlived" : "slept");
    };
    auto owner = std::make_unique<Job<>>();
    *owner = start(this->scheduler, destroying(&owner, &this->trace));
    this->settle();
    EXPECT_EQ(this->trace.lines(), Lines{"outlived"});
    EXPECT_EQ(this->scheduler.tasksAlive(), 0U);
}

TYPED_TEST(TaskContract, dyingQueueEndsTheWaitForWorkItDrops) {
    std::atomic<bool> isDropped = false;
    auto departure = std::make_shared<Departure>([&] { isDropped = true; });
    this->queue->post([&] {
        while (!isDropped) pauseOnQueue(this->scheduler);
    });
    auto job = start(this->scheduler,
                     cutShortOnQueue(this->queue.get(), [departure](const AbandonFlag&) { return 1; }));
    departure.reset();
    this->turn();
    this->queue.reset();
    EXPECT_TRUE(job.isRunning());
    this->settle();
    EXPECT_FALSE(job.isRunning());
}

TYPED_TEST(TaskContract, exceptionsStayInTheirJob) {
    const auto throwing = [](std::string what) -> Task<int> {
        (void)co_await sleepFor(1ms);
        throw std::runtime_error(what);
    };
    const auto onQueue = [](SerialQueue* queue) -> Task<int> {
        const auto result =
            co_await runOn(*queue, [](const AbandonFlag&) -> int { throw std::runtime_error("queue"); });
        co_return result.value_or(0);
    };
    const auto catching = [](Trace* trace, Task<int> child, const Job<int>* failed) -> Task<> {
        try {
            (void)co_await std::move(child);
        } catch (const std::runtime_error& fault) {
            trace->add(fault.what());
        }
        const auto result = co_await failed->result();
        trace->add(result ? "a result" : "none");
        throw 42;
    };
    auto failed = start(this->scheduler, throwing("root"));
    auto first = start(this->scheduler, catching(&this->trace, throwing("child"), &failed));
    auto second = start(this->scheduler, catching(&this->trace, onQueue(this->queue.get()), &failed));
    this->settle();
    EXPECT_EQ(this->trace.sorted(), (Lines{"child", "none", "none", "queue"}));
    const std::string unnamed = "an exception that is no std::exception";
    EXPECT_EQ(this->faults.sorted(), (Lines{unnamed, unnamed, "root"}));
}

Task<> await(Trace* trace, std::string name, const Job<std::string>* awaited) {
    const auto result = co_await awaited->result();
    trace->add(name + ": " + result.value_or("none"));
}

Task<std::string> answer(Seconds delay) {
    const auto wake = co_await sleepFor(delay);
    co_return wake == Wake::Due ? "answer" : "tidied up";
}

/// Of another language, and so nothing that an exception_ptr holds.
void throwForeignException() {
    static _Unwind_Exception foreign{};
    foreign.exception_class = 0x474e55434f424a43; // GNUCOBJC
    _Unwind_RaiseException(&foreign);
}

Task<int> madeOfForeignException() {
    throwForeignException();
    co_return 1;
}

Task<> awaitsForeignException() { (void)co_await madeOfForeignException(); }

Task<> awaitsForeignExceptionOfWork(SerialQueue* queue) {
    (void)co_await runOn(*queue, [](const AbandonFlag&) {
        throwForeignException();
        return 1;
    });
}

TYPED_TEST(TaskContract, exceptionOfAnotherLanguageEndsTheProgramWithASentence) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const std::string sentence = "An exception that isn't C\\+\\+'s has left a task";
    const auto die = [this](Task<> task) {
        const auto job = start(this->scheduler, std::move(task));
        this->settle();
    };
    EXPECT_DEATH(die(awaitsForeignException()), sentence);
    EXPECT_DEATH(die(awaitsForeignExceptionOfWork(this->queue.get())), sentence);
}

TYPED_TEST(TaskContract, severalAwaitOneResult) {
    auto& scheduler = this->scheduler;
    auto awaited = start(scheduler, answer(2ms));
    auto first = start(scheduler, await(&this->trace, "first", &awaited));
    auto second = start(scheduler, await(&this->trace, "second", &awaited));
    auto third = start(scheduler, await(&this->trace, "third", &awaited));
    this->turn();
    second.cancel();
    EXPECT_TRUE(awaited.isRunning());
    this->settle();
    auto late = start(scheduler, await(&this->trace, "late", &awaited));
    const Job<std::string> empty;
    auto useless = start(scheduler, await(&this->trace, "of nothing", &empty));
    this->settle();
    EXPECT_EQ(this->trace.lines(),
              (Lines{"second: none", "first: answer", "third: answer", "late: answer", "of nothing: none"}));
}

TYPED_TEST(TaskContract, waitersOfACancelledJobGoOnInATurnOfTheirOwn) {
    auto awaited = start(this->scheduler, answer(1h));
    auto waiter = start(this->scheduler, await(&this->trace, "waiter", &awaited));
    auto other = start(this->scheduler, await(&this->trace, "other", &awaited));
    this->turn();
    awaited.cancel();
    this->trace.add("cancelled");
    other.cancel();
    this->settle();
    EXPECT_EQ(this->trace.lines(), (Lines{"cancelled", "other: none", "waiter: none"}));
}

TYPED_TEST(TaskContract, manyWaitsThatDoNotSuspendNeedNoStack) {
    const auto child = []() -> Task<int> { co_return 1; };
    const auto looping = [](auto makeChild, Trace* trace) -> Task<> {
        int sum = 0;
        for (int i = 0; i < 100'000; ++i) sum += co_await makeChild();
        trace->add(std::to_string(sum));
    };
    auto job = start(this->scheduler, looping(child, &this->trace));
    this->settle();
    EXPECT_EQ(this->trace.lines(), Lines{"100000"});
}

} // namespace
} // namespace tavrin
