#include "native/policy/native_expanded_rescue_latch.h"

#include <gtest/gtest.h>

namespace tavrin {
namespace {

using Units = std::set<std::string>;
using enum NativeExpandedRescueLatch::ReplacesExisting;

const Rect screen{0, 0, 1512, 982};
const Rect otherScreen{1512, 0, 1512, 982};

LaneLayout laneAt(double leadingEdge, double spacing = 0) { return {screen, leadingEdge, spacing}; }

class LatchTest : public testing::Test {
  protected:
    void latch(const Units& trapped, double at, std::optional<LaneLayout> lane = laneAt(900)) {
        rescue.latch(trapped, No, lane, Seconds{at});
    }

    bool release(double leadingEdge, double at, double spacing = 0) {
        return rescue.releaseFitting(laneAt(leadingEdge, spacing), measures, order, Seconds{at});
    }

    /// One unit is latched, confirmed, and let back into this much room.
    void releaseInto(double room) {
        latch({"a"}, 0);
        latch({}, 0.5);
        ASSERT_TRUE(release(900 + room, 1));
    }

    NativeExpandedRescueLatch rescue;
    NativeExpandedRescueLatch::Measures measures{{{"a", {"a::1"}}, {"b", {"b::1", "b::2"}}, {"c", {"c::1"}}},
                                                 {{"a::1", 40}, {"b::1", 20}}};
    std::vector<std::string> order{"b", "a", "c"};
};

TEST_F(LatchTest, waitsToSeeEachNewUnitGone) {
    latch({"a"}, 0);
    EXPECT_EQ(rescue.identifiers, Units{"a"});
    EXPECT_EQ(rescue.unconfirmedIdentifiers, Units{"a"});
    EXPECT_FALSE(rescue.frontier);
    latch({"b"}, 1);
    EXPECT_EQ(rescue.identifiers, (Units{"a", "b"}));
    EXPECT_EQ(rescue.unconfirmedIdentifiers, Units{"b"});
    latch({"b"}, 2);
    EXPECT_EQ(rescue.unconfirmedIdentifiers, Units{});
    EXPECT_EQ(rescue.frontier, laneAt(900));
}

TEST_F(LatchTest, isReplacedByWhatAnUnrestrictedBarShows) {
    latch({"a"}, 0);
    rescue.latch({"b"}, Yes, laneAt(900), Seconds{1});
    EXPECT_EQ(rescue.identifiers, Units{"b"});
    EXPECT_EQ(rescue.unconfirmedIdentifiers, Units{"b"});
    rescue.latch({}, Yes, laneAt(900), Seconds{2});
    EXPECT_EQ(rescue.identifiers, Units{});
}

TEST_F(LatchTest, followsTheLaneToTheLeftAndToOtherScreens) {
    latch({}, 0, laneAt(900));
    latch({}, 0, laneAt(950));
    EXPECT_EQ(rescue.frontier->leadingEdge, 900);
    latch({}, 0, std::nullopt);
    EXPECT_EQ(rescue.frontier->leadingEdge, 900);
    latch({}, 0, laneAt(880));
    EXPECT_EQ(rescue.frontier->leadingEdge, 880);
    latch({}, 0, LaneLayout{otherScreen, 2000, 0});
    EXPECT_EQ(rescue.frontier->leadingEdge, 2000);
}

TEST_F(LatchTest, letsBackTheFirstUnitThatFits) {
    latch({"a", "b", "c"}, 0);
    latch({}, 0.5);
    EXPECT_FALSE(release(900 + 43, 1)) << "c needs 28 + 8 + 8";
    ASSERT_TRUE(release(900 + 44, 1));
    EXPECT_EQ(rescue.pendingRelease->unit, "c");
    EXPECT_EQ(rescue.identifiers, (Units{"a", "b"}));
    EXPECT_FALSE(release(1200, 1.5)) << "one at a time";
    latch({}, 2);
    ASSERT_TRUE(release(900 + 20 + 28 + 8 + 8, 2)) << "b has an item that nobody has measured";
    EXPECT_EQ(*rescue.pendingRelease,
              (NativeExpandedRescueLatch::PendingRelease{"b", {"b::1", "b::2"}, 64, Seconds{2}}));
}

TEST_F(LatchTest, countsTheSpacingOfTheLane) {
    latch({"a"}, 0);
    latch({}, 0.5);
    EXPECT_FALSE(release(900 + 40 + 12 + 7, 1, 12));
    EXPECT_TRUE(release(900 + 40 + 12 + 8, 1, 12));
}

TEST_F(LatchTest, letsNothingBackWithoutKnowingTheRoom) {
    EXPECT_FALSE(release(1200, 0)) << "nothing is latched";
    latch({"a"}, 0);
    EXPECT_FALSE(release(1200, 0)) << "it was not seen gone";
    rescue.unconfirmedIdentifiers.clear();
    EXPECT_FALSE(release(1200, 0)) << "there is no frontier";
    latch({}, 1);
    EXPECT_FALSE(release(900, 1));
    EXPECT_FALSE(rescue.releaseFitting({otherScreen, 2000, 0}, measures, order, Seconds{1}));
    EXPECT_TRUE(release(1200, 1));
}

TEST_F(LatchTest, judgesAReleaseASecondLater) {
    releaseInto(100);
    latch({"a", "b"}, 1.99);
    EXPECT_EQ(rescue.identifiers, Units{}) << "too early, also for others";
    EXPECT_TRUE(rescue.pendingRelease);
    latch({"a", "b"}, 2);
    EXPECT_FALSE(rescue.pendingRelease);
    EXPECT_EQ(rescue.identifiers, Units{}) << "the call that finds the failure latches nothing";
    EXPECT_FALSE(rescue.frontier);
    EXPECT_EQ(rescue.failedReleaseRooms, (std::map<std::string, double>{{"a", 100}}));
    latch({"a", "b"}, 2.3);
    EXPECT_EQ(rescue.identifiers, (Units{"a", "b"}));
}

TEST_F(LatchTest, triesAFailedUnitAgainInClearlyMoreRoom) {
    releaseInto(100);
    latch({"a"}, 2);
    latch({"a"}, 3);
    latch({}, 4, laneAt(900));
    EXPECT_FALSE(release(900 + 113, 5));
    EXPECT_TRUE(release(900 + 114, 5));
}

TEST_F(LatchTest, goesOnAfterAReleaseThatFits) {
    releaseInto(100);
    latch({"b"}, 2);
    EXPECT_FALSE(rescue.pendingRelease);
    EXPECT_EQ(rescue.identifiers, Units{"b"});
    EXPECT_TRUE(rescue.failedReleaseRooms.empty());
}

TEST_F(LatchTest, dropsUnitsWithTheirApplications) {
    const std::string wifi = "com.apple.controlcenter::identifier:com.apple.menuextra.wifi";
    latch({"a", "b", wifi}, 0);
    rescue.retain({"b"});
    EXPECT_EQ(rescue.identifiers, (Units{"b", wifi}));
    EXPECT_EQ(rescue.unconfirmedIdentifiers, (Units{"b", wifi}));
}

} // namespace
} // namespace tavrin
