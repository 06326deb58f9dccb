// Timers, queues, preferences and texts of the Mac side, over GNUstep's.
#include "mac_side/mac_side_fixture.h"
#include "platform/defaults.h"
#include "platform/text.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <vector>

namespace mac_side {

namespace {

using ServicesTest = MacSideTest;

const DefaultsDomain scratch{"org.tavrin.mac-side.scratch", DefaultsDomain::Host::Any};
const DefaultsDomain scratchOfThisHost{"org.tavrin.mac-side.scratch", DefaultsDomain::Host::Current};

TEST_F(ServicesTest, timersFireInTheOrderOfTheirTimes) {
    std::vector<int> fired;
    platform.scheduler.callAfter(Seconds{0.06}, [&] { fired.push_back(2); });
    platform.scheduler.callAfter(Seconds{0.02}, [&] { fired.push_back(1); });
    const auto cancelled = platform.scheduler.callAfter(Seconds{0.03}, [&] { fired.push_back(9); });
    platform.scheduler.cancelTimer(cancelled);
    EXPECT_TRUE(until([&] { return fired.size() == 2; }));
    EXPECT_EQ(fired, (std::vector<int>{1, 2}));
}

TEST_F(ServicesTest, aRepeatingTimerMayCancelItself) {
    int count = 0;
    TimerIdentifier timer{};
    timer = platform.scheduler.callEvery(Seconds{0.01}, [&] {
        if (++count == 3) platform.scheduler.cancelTimer(timer);
    });
    EXPECT_TRUE(until([&] { return count == 3; }));
    turnFor(0.05);
    EXPECT_EQ(count, 3);
}

TEST_F(ServicesTest, workOfAQueueRunsElsewhereAndComesBackInOrder) {
    auto queue = platform.scheduler.makeSerialQueue("test");
    std::vector<int> seen;
    std::atomic<int> onMain = 0;
    for (int i = 0; i < 20; ++i)
        queue->post([&, i] {
            onMain += platform.scheduler.isMainThread();
            platform.scheduler.post([&, i] { seen.push_back(platform.scheduler.isMainThread() ? i : -1); });
        });
    EXPECT_TRUE(until([&] { return seen.size() == 20; }));
    EXPECT_EQ(onMain, 0);
    EXPECT_EQ(seen.front(), 0);
    EXPECT_TRUE(std::ranges::is_sorted(seen));
}

TEST_F(ServicesTest, anExceptionOfFoundationsInWorkIsReported) {
    std::string fault;
    platform.scheduler.onFault = [&](std::string_view what) { fault = what; };
    platform.scheduler.post([] { [NSException raise:NSRangeException format:@"out of it"]; });
    EXPECT_TRUE(until([&] { return !fault.empty(); }));
    EXPECT_EQ(fault, "NSRangeException: out of it");
}

TEST_F(ServicesTest, preferencesComeBackAsTheyWereStored) {
    const std::vector<DefaultsValue> values{{true},
                                            {std::int64_t{-7}},
                                            {2.5},
                                            {"text “é”"},
                                            {DefaultsData{std::byte{0}, std::byte{255}}},
                                            {DefaultsArray{{false}, {std::int64_t{1}}, {"x"}, {""}}},
                                            {DefaultsDictionary{{"a", {1.5}}, {"b", {DefaultsArray{}}}}}};
    for (const auto& value : values) {
        platform.defaults.set(scratch, "key", value);
        EXPECT_EQ(platform.defaults.value(scratch, "key"), value) << value.value.index();
        EXPECT_FALSE(platform.defaults.value(scratchOfThisHost, "key"));
    }
    EXPECT_EQ(platform.defaults.keys(scratch), std::vector<std::string>{"key"});
    platform.defaults.remove(scratch, "key");
    EXPECT_FALSE(platform.defaults.value(scratch, "key"));
    EXPECT_TRUE(platform.defaults.keys(scratch).empty());
}

TEST_F(ServicesTest, textsAreReadAndWrittenInUtf8) {
    EXPECT_EQ(platform.text.lowercased("ÀÉ"), "àé");
    EXPECT_EQ(platform.text.capitalized("quit tavrin"), "Quit Tavrin");
    EXPECT_EQ(platform.text.trimmed(" \n a b \t"), "a b");
    EXPECT_EQ(platform.text.keepingAlphanumerics("a-b c1."), "abc1");
    EXPECT_EQ(platform.text.foldingCaseAndDiacritics("Éa"), "ea");
}

TEST_F(ServicesTest, halfWidthSoundMarksJoinTheLetterBeforeThem) {
    EXPECT_EQ(platform.text.foldingCaseDiacriticsAndWidth("quit"), "quit");
    EXPECT_EQ(platform.text.foldingCaseDiacriticsAndWidth("カ\uFF9E"), "ガ");
    EXPECT_EQ(platform.text.foldingCaseDiacriticsAndWidth("ハ\uFF9Fパ"), "パパ");
}

} // namespace

} // namespace mac_side
