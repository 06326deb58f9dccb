#include "concurrency/job.h"
#include "concurrency/virtual_scheduler.h"
#include "concurrency/wait_until.h"

#include <gtest/gtest.h>
#include <optional>
#include <vector>

namespace tavrin {
namespace {

/// The moments at which a wait looked, and how it ended.
struct Record {
    std::vector<double> looks;
    std::optional<Waited> end;
};

Task<> recorded(Task<Waited> wait, Record* record) { record->end = co_await std::move(wait); }

Task<bool> slowly(Seconds duration, bool answer) {
    (void)co_await sleepFor(duration);
    co_return answer;
}

class WaitUntil : public testing::Test {
  protected:
    /// Met from the given moment on.
    auto metAt(double moment) {
        return [this, moment] {
            record.looks.push_back(scheduler.now().count());
            return scheduler.now().count() >= moment;
        };
    }

    template <class Condition>
    void begin(Condition condition, Seconds interval, Seconds limit) {
        job = start(scheduler, recorded(waitUntil(scheduler, condition, interval, limit), &record));
    }

    void expectLooks(const std::vector<double>& expected) {
        ASSERT_EQ(record.looks.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_NEAR(record.looks[i], expected[i], 1e-9);
    }

    VirtualScheduler scheduler;
    Record record;
    Job<> job;
};

TEST_F(WaitUntil, looksAtOnceAndAtEveryInterval) {
    begin(metAt(0), Seconds{0.5}, Seconds{2});
    scheduler.advance(Seconds{0});
    EXPECT_EQ(record.end, Waited::Met);
    record = {};
    begin(metAt(0.7), Seconds{0.5}, Seconds{2});
    scheduler.advance(Seconds{5});
    EXPECT_EQ(record.end, Waited::Met);
    expectLooks({0, 0.5, 1});
}

TEST_F(WaitUntil, looksOnceMoreAtTheEnd) {
    begin(metAt(1.2), Seconds{0.5}, Seconds{1.25});
    scheduler.advance(Seconds{5});
    EXPECT_EQ(record.end, Waited::Met) << "what came true in the last interval isn't missed";
    expectLooks({0, 0.5, 1, 1.25});
    record = {};
    const auto begun = scheduler.now().count();
    begin(metAt(1e9), Seconds{0.04}, Seconds{0.4}); // ten intervals, by whose sum rounding leaves a rest
    scheduler.advance(Seconds{5});
    EXPECT_EQ(record.end, Waited::TimedOut);
    EXPECT_EQ(record.looks.size(), 11U);
    EXPECT_NEAR(record.looks.back() - begun, 0.4, 1e-9);
}

TEST_F(WaitUntil, looksOnceMoreAfterALookThatTookTooLong) {
    int looks = 0;
    begin([&looks] { return slowly(Seconds{3}, ++looks == 2); }, Seconds{0.5}, Seconds{1});
    scheduler.advance(Seconds{10});
    EXPECT_EQ(record.end, Waited::Met);
    looks = 2;
    begin([&looks] { return slowly(Seconds{3}, ++looks < 0); }, Seconds{0.5}, Seconds{1});
    scheduler.advance(Seconds{10});
    EXPECT_EQ(record.end, Waited::TimedOut);
    EXPECT_EQ(looks, 4);
}

TEST_F(WaitUntil, endsAtOnceWhenItsJobIsCancelled) {
    begin(metAt(1e9), Seconds{0.5}, Seconds{2});
    scheduler.advance(Seconds{0.7});
    job.cancel();
    EXPECT_EQ(record.end, Waited::CutShort);
    scheduler.advance(Seconds{5});
    expectLooks({0, 0.5});
}

} // namespace
} // namespace tavrin
