#include "concurrency/waits.h"
#include "seam_check/all_checks.h"
#include "seam_check/findings.h"
#include "seam_check/waiting.h"
#include "seam_check/words.h"

#include <algorithm>
#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace tavrin::seam_check {

namespace {

using namespace std::chrono_literals;

/// How late a timer may be on a machine that is busy.
constexpr Seconds patience = 2s;
/// How far the clocks of timers and of `now` may differ.
constexpr Seconds grain = 2ms;

Task<Verdict> timeGoesForward(Platform platform) {
    auto& scheduler = platform.scheduler;
    const auto before = scheduler.now();
    (void)co_await sleepFor(50ms);
    const auto took = scheduler.now() - before;
    Findings findings;
    findings.expect(took >= 50ms - grain, "a wait of 0.05 s took only " + said(took));
    findings.expect(took < patience, "a wait of 0.05 s took " + said(took));
    findings.expect(scheduler.isMainThread(), "a task goes on off the main thread");
    co_return findings.verdict("A wait of 0.05 s took " + said(took) + ".");
}

Task<Verdict> workKeepsItsOrder(Platform platform) {
    auto& scheduler = platform.scheduler;
    auto order = std::make_shared<std::string>();
    const auto tell = [&scheduler, order](char name) {
        return [&scheduler, order, name] { *order += scheduler.isMainThread() ? name : '!'; };
    };
    scheduler.post([&scheduler, order, tell] {
        *order += 'a';
        scheduler.post(tell('d'));
    });
    scheduler.post(tell('b'));
    scheduler.post(tell('c'));
    const bool ranAtOnce = !order->empty();
    (void)co_await comesTrue(platform, [order] { return order->size() >= 4; }, patience);
    Findings findings;
    findings.expect(!ranAtOnce, "work ran within the call that posted it");
    findings.expect(*order == "abcd", "work that was posted as abcd ran as " + quoted(*order));
    co_return findings.verdict("Four pieces ran in their order.");
}

Task<Verdict> postingWorksFromAnyThread(Platform platform) {
    auto& scheduler = platform.scheduler;
    const auto queue = scheduler.makeSerialQueue("org.tavrin.seam-check.posting");
    auto order = std::make_shared<std::string>();
    queue->post([&scheduler, order] {
        for (const char name : {'a', 'b', 'c'})
            scheduler.post([&scheduler, order, name] { *order += scheduler.isMainThread() ? name : '!'; });
    });
    (void)co_await comesTrue(platform, [order] { return order->size() >= 3; }, patience);
    if (*order != "abc") co_return failed("Work posted as abc from a queue ran as " + quoted(*order) + ".");
    co_return passed("Three pieces ran on the main thread, in their order.");
}

Task<Verdict> timersFireWhenDue(Platform platform) {
    auto& scheduler = platform.scheduler;
    auto fired = std::make_shared<std::string>();
    auto tooEarly = std::make_shared<bool>(false);
    const auto begun = scheduler.now();
    const auto add = [&](Seconds delay, char name) {
        scheduler.callAfter(delay, [&scheduler, fired, tooEarly, begun, delay, name] {
            *tooEarly = *tooEarly || scheduler.now() - begun < delay - grain;
            *fired += scheduler.isMainThread() ? name : '!';
        });
    };
    add(90ms, 'c');
    add(0ms, 'a');
    add(40ms, 'b');
    (void)co_await comesTrue(platform, [fired] { return fired->size() >= 3; }, patience);
    Findings findings;
    findings.expect(*fired == "abc", "timers due as abc fired as " + quoted(*fired));
    findings.expect(!*tooEarly, "a timer fired before it was due");
    co_return findings.verdict("Three timers fired in the order of their times.");
}

Task<Verdict> cancelledTimersStaySilent(Platform platform) {
    auto& scheduler = platform.scheduler;
    auto count = std::make_shared<int>(0);
    const auto once = scheduler.callAfter(30ms, [count] { ++*count; });
    const auto often = scheduler.callEvery(10ms, [count] { ++*count; });
    const auto due = scheduler.callAfter(0ms, [count] { ++*count; });
    for (const auto timer : {once, often, due, due, TimerIdentifier::None}) scheduler.cancelTimer(timer);
    (void)co_await sleepFor(100ms);
    Findings findings;
    findings.expect(*count == 0,
                    "cancelled timers fired " + counted(static_cast<std::size_t>(*count), "time"));
    findings.expect(count.use_count() == 1, "the work of a cancelled timer is kept");
    co_return findings.verdict("Three cancelled timers never fired.");
}

Task<Verdict> repeatingTimersGoOn(Platform platform) {
    auto& scheduler = platform.scheduler;
    auto count = std::make_shared<int>(0);
    auto timer = std::make_shared<TimerIdentifier>();
    *timer = scheduler.callEvery(10ms, [&scheduler, count, timer] {
        if (++*count == 3) scheduler.cancelTimer(*timer);
    });
    (void)co_await comesTrue(platform, [count] { return *count >= 3; }, patience);
    (void)co_await sleepFor(60ms);
    scheduler.cancelTimer(*timer);
    if (*count != 3)
        co_return failed("It was to cancel itself at the third time and fired " + std::to_string(*count) +
                         " times.");
    co_return passed("It fired three times and cancelled itself.");
}

Task<Verdict> queuesKeepTheirOrder(Platform platform) {
    struct Notes {
        std::atomic<int> running = 0;
        std::atomic<int> done = 0;
        std::atomic<bool> isInOrder = true;
        std::atomic<bool> isAlone = true;
        std::atomic<bool> isOffMain = true;
    };

    constexpr int pieces = 100;
    auto& scheduler = platform.scheduler;
    auto notes = std::make_shared<Notes>();
    const auto queue = scheduler.makeSerialQueue("org.tavrin.seam-check.order");
    for (int n = 0; n < pieces; ++n)
        queue->post([&scheduler, notes, n] {
            if (++notes->running != 1) notes->isAlone = false;
            if (notes->done != n) notes->isInOrder = false;
            if (scheduler.isMainThread()) notes->isOffMain = false;
            --notes->running;
            ++notes->done;
        });
    (void)co_await comesTrue(platform, [notes] { return notes->done == pieces; }, patience);
    Findings findings;
    findings.expect(notes->done == pieces, "only " + std::to_string(notes->done) + " of 100 pieces ran");
    findings.expect(notes->isInOrder, "work of a queue ran out of its order");
    findings.expect(notes->isAlone, "two pieces of one queue ran at once");
    findings.expect(notes->isOffMain, "work of a queue ran on the main thread");
    findings.expect(queue->label() == "org.tavrin.seam-check.order", "a queue has lost its label");
    co_return findings.verdict("A hundred pieces ran in their order, one at a time.");
}

/// Keeps a processor busy for a moment.
void dawdle() {
    std::atomic<int> count = 0;
    while (count < 20'000) ++count;
}

Task<Verdict> dyingQueuesLeaveNothing(Platform platform) {
    struct Notes {
        std::atomic<int> begun = 0;
        std::atomic<int> ended = 0;
    };

    auto& scheduler = platform.scheduler;
    auto notes = std::make_shared<Notes>();
    auto queue = scheduler.makeSerialQueue("org.tavrin.seam-check.dying");
    for (int n = 0; n < 200; ++n)
        queue->post([notes] {
            ++notes->begun;
            dawdle();
            ++notes->ended;
        });
    (void)co_await comesTrue(platform, [notes] { return notes->begun > 0; }, patience);
    queue.reset();
    const int begun = notes->begun;
    const int ended = notes->ended;
    const auto owners = notes.use_count();
    (void)co_await sleepFor(50ms);
    Findings findings;
    findings.expect(begun == ended, "the piece in progress was not waited for");
    findings.expect(notes->begun == begun, "work began after its queue was destroyed");
    findings.expect(owners == 1, "work that had not begun was not dropped");
    co_return findings.verdict(std::to_string(ended) + " of 200 pieces had ended, and none came after.");
}

Task<Verdict> sharesRunOnceEach(Platform platform) {
    struct Notes {
        std::mutex mutex;
        std::vector<int> runs = std::vector<int>(64, 0);
        bool isOffMain = true;
    };

    auto& scheduler = platform.scheduler;
    auto notes = std::make_shared<Notes>();
    const auto returnedAfter = co_await offTheMainThread(platform, [&scheduler, notes] {
        scheduler.concurrentPerform(notes->runs.size(), [&scheduler, notes](std::size_t share) {
            const std::lock_guard lock(notes->mutex);
            ++notes->runs[share];
            notes->isOffMain = notes->isOffMain && !scheduler.isMainThread();
        });
        scheduler.concurrentPerform(0, [notes](std::size_t) { notes->runs[0] = 100; });
        const std::lock_guard lock(notes->mutex);
        return std::ranges::count(notes->runs, 1);
    });
    Findings findings;
    findings.expect(returnedAfter == 64, "not every share had run once when it returned");
    findings.expect(notes->isOffMain, "a share ran on the main thread");
    co_return findings.verdict("64 shares ran once each.");
}

Task<Verdict> faultsAreReported(Platform platform) {
    auto& scheduler = platform.scheduler;
    auto faults = std::make_shared<std::atomic<int>>(0);
    auto hasGoneOn = std::make_shared<std::atomic<bool>>(false);
    const auto former = std::exchange(scheduler.onFault, [faults](std::string_view) { ++*faults; });
    const auto fail = [] { (void)std::string().at(1); };
    const auto queue = scheduler.makeSerialQueue("org.tavrin.seam-check.faults");
    scheduler.post(fail);
    scheduler.callAfter(0ms, fail);
    queue->post(fail);
    queue->post([hasGoneOn] { *hasGoneOn = true; });
    (void)co_await comesTrue(platform, [=] { return *faults >= 3 && *hasGoneOn; }, patience);
    scheduler.onFault = former;
    Findings findings;
    findings.expect(*faults == 3, "of three exceptions " + std::to_string(*faults) + " were reported");
    findings.expect(*hasGoneOn, "a queue stopped at an exception");
    co_return findings.verdict("Exceptions of posted work, a timer and a queue were reported.");
}

} // namespace

std::vector<Check> schedulerChecks() {
    constexpr auto family = "scheduler";
    return {
        reads(family, "Time goes forward, and a wait on the main thread lasts as long as asked.",
              timeGoesForward),
        reads(family, "Posted work runs on the main thread in the order of posting.", workKeepsItsOrder),
        reads(family, "Work posted from another thread runs on the main thread in its order.",
              postingWorksFromAnyThread),
        reads(family, "Timers fire in the order of their times and never early.", timersFireWhenDue),
        reads(family, "A cancelled timer never fires.", cancelledTimersStaySilent),
        reads(family, "A repeating timer goes on until it is cancelled, also by its own work.",
              repeatingTimersGoOn),
        reads(family, "A queue runs its work off the main thread, in order, one piece at a time.",
              queuesKeepTheirOrder),
        reads(family, "A queue that is destroyed finishes the piece in progress and drops the others.",
              dyingQueuesLeaveNothing),
        reads(family, "Concurrent shares run once each, and all have ended when the call returns.",
              sharesRunOnceEach),
        reads(family, "An exception that leaves a piece of work is reported and stops nothing else.",
              faultsAreReported),
    };
}

} // namespace tavrin::seam_check
