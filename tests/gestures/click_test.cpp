#include "concurrency/job.h"
#include "concurrency/virtual_scheduler.h"
#include "gestures/click.h"
#include "support/fake_events.h"

#include <gtest/gtest.h>
#include <optional>

namespace tavrin {
namespace {

Task<> keep(Task<GestureResult> task, std::optional<GestureResult>* result) {
    *result = co_await std::move(task);
}

class ClickTest : public testing::Test {
  protected:
    VirtualScheduler scheduler;
    FakeEvents events{scheduler};
    std::optional<GestureResult> result;
};

TEST_F(ClickTest, pressesAndReleasesAndPutsThePointerBack) {
    const auto job = start(scheduler, keep(postClick(events, {.location = {914, 15}}), &result));
    EXPECT_TRUE(scheduler.settle(Seconds{5}));
    EXPECT_EQ(result, GestureResult::posted);
    EXPECT_EQ(events.log, (std::vector<std::string>{"0 session down 914,15", "10 session up 914,15",
                                                    "10 session moved 300,400"}));
    EXPECT_EQ(events.posted[0].clickState, 1);
    EXPECT_EQ(events.posted[1].clickState, 1);
    EXPECT_FALSE(events.posted[0].source);
}

TEST_F(ClickTest, releasesTheButtonWhenItsJobIsCancelled) {
    auto job = start(scheduler, keep(postClick(events, {.location = {914, 15}}), &result));
    scheduler.advance(Seconds{0.005});
    job.cancel();
    EXPECT_TRUE(events.isAtRest());
    EXPECT_EQ(result, GestureResult::cancelled);
}

} // namespace
} // namespace tavrin
