#include "concurrency/job.h"
#include "concurrency/scheduler_fixture.h"
#include "concurrency/waits.h"

#include <random>

namespace tavrin {
namespace {

class VirtualSchedulerTest : public SchedulerFixture<VirtualScheduler> {
  protected:
    /// Work that tells its name and the time in milliseconds.
    Work telling(std::string name) {
        return [this, name] { tell(name); };
    }

    void tell(const std::string& name) {
        trace.add(name + "@" + std::to_string(std::lround(scheduler.now().count() * 1000)));
    }
};

TEST_F(VirtualSchedulerTest, timeMovesOnlyAsFarAsItIsTold) {
    scheduler.callAfter(10ms, telling("due"));
    scheduler.callAfter(11ms, telling("not due"));
    scheduler.callAfter(-1s, telling("overdue"));
    scheduler.advance(10ms);
    EXPECT_EQ(trace.lines(), (Lines{"overdue@0", "due@10"}));
    EXPECT_EQ(scheduler.now(), Seconds(10ms));
    EXPECT_EQ(scheduler.timersPending(), 1U);
    EXPECT_NEAR(scheduler.nextDue()->count(), 0.011, 1e-9);
    scheduler.advance(1h);
    EXPECT_FALSE(scheduler.nextDue());
}

TEST_F(VirtualSchedulerTest, queueThatSpendsTimeInterleavesWithTheMainThread) {
    const auto queue = scheduler.makeSerialQueue("org.example.slow");
    const auto other = scheduler.makeSerialQueue("org.example.other");
    queue->post([this] {
        tell("begun");
        scheduler.spend(5ms);
        tell("ended");
    });
    queue->post(telling("next"));
    other->post(telling("other"));
    scheduler.callAfter(2ms, telling("main"));
    scheduler.callAfter(5ms, telling("posted before the queue's wake-up"));
    settle();
    EXPECT_EQ(trace.lines(), (Lines{"begun@0", "other@0", "main@2", "posted before the queue's wake-up@5",
                                    "ended@5", "next@5"}));
}

TEST_F(VirtualSchedulerTest, blockedMainThreadStopsNeitherTheWorldNorTheQueues) {
    const auto queue = scheduler.makeSerialQueue("org.example.going");
    scheduler.callAfter(1ms, telling("main"));
    const auto world = scheduler.callInWorldAfter(2ms, [this] {
        tell("world");
        scheduler.spend(1ms); // the main thread stays blocked when this inner wait is over
    });
    queue->post([this] {
        scheduler.spend(3ms);
        tell("queue");
        scheduler.post(telling("from the queue"));
    });
    EXPECT_EQ(scheduler.timersPending(), 1U);
    scheduler.spend(10ms);
    EXPECT_EQ(trace.lines(), (Lines{"world@2", "queue@3"}));
    scheduler.cancelTimer(world);
    settle();
    EXPECT_EQ(trace.lines(), (Lines{"world@2", "queue@3", "main@10", "from the queue@10"}));
}

TEST_F(VirtualSchedulerTest, concurrentPerformTakesAsLongAsItsLongestLane) {
    const auto queue = scheduler.makeSerialQueue("org.example.wide");
    queue->post([this] {
        scheduler.concurrentPerform(8, [this](std::size_t share) { scheduler.spend(share * Seconds(1ms)); });
        tell("eight");
        scheduler.concurrentPerform(9, [this](std::size_t) { scheduler.spend(10ms); });
        tell("nine");
        scheduler.concurrentPerform(2, [this](std::size_t) {
            scheduler.concurrentPerform(3, [this](std::size_t) { scheduler.spend(3ms); });
        });
        tell("nested");
    });
    scheduler.callAfter(3ms, telling("main"));
    settle();
    EXPECT_EQ(trace.lines(), (Lines{"main@3", "eight@7", "nine@27", "nested@30"}));
}

TEST_F(VirtualSchedulerTest, settlesUnlessSomethingLastsLongerThanTheLimit) {
    const auto repeating = scheduler.callEvery(1s, telling("tick"));
    scheduler.callAfter(2500ms, telling("last"));
    EXPECT_TRUE(scheduler.settle(30s));
    EXPECT_EQ(trace.lines(), (Lines{"tick@1000", "tick@2000", "last@2500"}));
    scheduler.cancelTimer(repeating);
    auto hung = scheduler.makeSerialQueue("org.example.hung");
    hung->post([this] { scheduler.spend(1h); });
    hung->post(telling("behind it"));
    EXPECT_FALSE(scheduler.settle(2s));
    EXPECT_EQ(scheduler.now(), Seconds(4500ms));
    hung.reset();
    EXPECT_TRUE(scheduler.settle(0s));
    EXPECT_EQ(trace.lines().size(), 3U);
}

TEST_F(VirtualSchedulerTest, dyingQueueFinishesItsPieceWithoutTimePassing) {
    auto queue = scheduler.makeSerialQueue("org.example.dying");
    queue->post([this] {
        scheduler.concurrentPerform(10, [this](std::size_t share) {
            scheduler.spend(1s);
            scheduler.concurrentPerform(2, [this](std::size_t) { scheduler.spend(1s); });
            if (share == 9) tell("last share");
        });
        scheduler.spend(1s);
        tell("finished");
        scheduler.post(telling("main"));
    });
    scheduler.callAfter(1500ms, telling("timer"));
    scheduler.advance(500ms);
    queue.reset();
    tell("gone");
    settle();
    EXPECT_EQ(trace.lines(), (Lines{"last share@500", "finished@500", "gone@500", "main@500", "timer@1500"}));
}

/// A program whose every step is chosen by its seed and told to the trace.
class RandomProgram {
  public:
    explicit RandomProgram(unsigned seed) : random_(seed) {
        for (auto& queue : queues_) queue = scheduler_.makeSerialQueue("org.example.random");
        for (int i = 0; i < 20; ++i) step();
        scheduler_.advance(10s);
    }

    Lines lines() const { return trace_.lines(); }

  private:
    std::size_t choose(std::size_t count) { return random_() % count; }

    Seconds someTime() { return choose(50) * Seconds(1ms); }

    void tell(std::string what) { trace_.add(what + std::to_string(scheduler_.now().count())); }

    static Task<> job(RandomProgram* self) {
        const Departure departure([self] { self->tell("job gone "); });
        for (int i = 0; i < 3; ++i) {
            const auto wake = co_await sleepFor(self->someTime());
            const auto value = co_await runOn(*self->queues_[self->choose(3)], [self](const AbandonFlag&) {
                self->scheduler_.spend(self->someTime());
                return self->choose(100);
            });
            self->tell((wake == Wake::Due ? "job " : "job cut short ") +
                       std::to_string(value.value_or(1000)) + " ");
        }
    }

    void workOnQueue() {
        tell("queue ");
        scheduler_.concurrentPerform(choose(12), [this](std::size_t share) {
            scheduler_.spend(someTime());
            tell("share " + std::to_string(share) + " ");
        });
        scheduler_.post([this] { step(); });
    }

    void step() {
        tell("step ");
        if (++steps_ > 400) return;
        const auto some = choose(3);
        timers_.push_back(scheduler_.callAfter(someTime(), [this] { step(); }));
        switch (choose(7)) {
        case 0:
            jobs_[some] = start(scheduler_, job(this));
            break;
        case 1:
            jobs_[some].cancel();
            break;
        case 2:
            scheduler_.cancelTimer(timers_[choose(timers_.size())]);
            break;
        case 3:
            scheduler_.spend(someTime());
            break;
        case 4:
            scheduler_.callInWorldAfter(someTime(), [this] { tell("world "); });
            break;
        case 5:
            queues_[some]->post([this] { workOnQueue(); });
            break;
        case 6:
            for (auto& each : jobs_) each.cancel(); // they may wait for the queue
            queues_[some] = scheduler_.makeSerialQueue("org.example.replacing");
            break;
        default:
            break;
        }
    }

    std::mt19937 random_;
    Trace trace_;
    VirtualScheduler scheduler_;
    int steps_ = 0;
    std::vector<TimerIdentifier> timers_;
    std::array<std::unique_ptr<SerialQueue>, 3> queues_;
    std::array<Job<>, 3> jobs_;
};

TEST(VirtualSchedulerRuns, areAlikeToTheLastEventForOneSeed) {
    for (const unsigned seed : {1U, 2U, 3U}) {
        const auto lines = RandomProgram(seed).lines();
        EXPECT_GT(lines.size(), 400U) << "seed " << seed;
        EXPECT_EQ(lines, RandomProgram(seed).lines()) << "seed " << seed;
    }
    EXPECT_NE(RandomProgram(1).lines(), RandomProgram(2).lines());
}

} // namespace
} // namespace tavrin
