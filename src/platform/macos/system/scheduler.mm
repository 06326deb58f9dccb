#include "platform/macos/system/scheduler.h"

#include "concurrency/due_work.h"
#include "platform/macos/support/conversions.h"
#include "platform/macos/support/main_thread.h"
#include "platform/macos/system/dispatch_queue.h"

#include <algorithm>
#include <cassert>
#include <pthread.h>
#include <time.h>
#include <utility>

namespace tavrin::macos {

namespace {

std::string faultText(NSException* exception) {
    return toString(exception.name) + ": " + toString(exception.reason);
}

} // namespace

void runReportingAllFaults(const Scheduler& scheduler, const Work& work) noexcept {
    @autoreleasepool {
        runReportingFaults(scheduler, [&] {
            @try {
                work();
            } @catch (NSException* exception) {
                scheduler.reportFault(faultText(exception));
            }
        });
    }
}

MacScheduler::MacScheduler() : posted_(std::make_shared<WorkList>()) { assertMainThread(); }

MacScheduler::~MacScheduler() {
    assertMainThread();
    // What dropped work owns may also start and cancel timers.
    while (!timers_.empty()) takeTimer(timers_.begin());
    posted_->end();
    while (!timers_.empty()) takeTimer(timers_.begin());
}

Seconds MacScheduler::now() const {
    return std::chrono::nanoseconds(clock_gettime_nsec_np(CLOCK_UPTIME_RAW));
}

bool MacScheduler::isMainThread() const { return pthread_main_np() != 0; }

/// A run loop nested in a piece of work runs the blocks posted inside it before those that already waited
/// outside; the list keeps the order of the work all the same.
void MacScheduler::post(Work work) {
    if (posted_->add(std::move(work)) == WorkList::Added::No) return;
    const auto posted = posted_;
    CFRunLoopPerformBlock(CFRunLoopGetMain(), kCFRunLoopCommonModes, ^{
        if (const auto next = posted->take()) runReportingAllFaults(*this, next);
    });
    CFRunLoopWakeUp(CFRunLoopGetMain());
}

TimerIdentifier MacScheduler::callAfter(Seconds delay, Work work) {
    return addTimer(std::max(delay, Seconds{0}), Seconds{0}, std::move(work));
}

TimerIdentifier MacScheduler::callEvery(Seconds interval, Work work) {
    assert(interval > Seconds{0});
    return addTimer(interval, interval, sharedWork(std::move(work)));
}

TimerIdentifier MacScheduler::addTimer(Seconds delay, Seconds interval, Work work) {
    assertMainThread();
    const auto identifier = TimerIdentifier{nextTimer_++};
    // The run loop turns the date into a time of its own clock at once: a wall clock that is set later
    // changes nothing.
    const auto timer =
        CFRunLoopTimerCreateWithHandler(kCFAllocatorDefault, CFAbsoluteTimeGetCurrent() + delay.count(),
                                        interval.count(), 0, 0, ^(CFRunLoopTimerRef) {
                                            fire(identifier);
                                        });
    CFRunLoopAddTimer(CFRunLoopGetMain(), timer, kCFRunLoopCommonModes);
    timers_[identifier] = {CfReference<CFRunLoopTimerRef>::adopting(timer), std::move(work),
                           interval > Seconds{0}};
    return identifier;
}

void MacScheduler::fire(TimerIdentifier identifier) {
    const auto found = timers_.find(identifier);
    if (found == timers_.end()) return;
    // A copy or the moved work: a timer may cancel itself while it runs.
    const auto work = found->second.isRepeating ? found->second.work : takeTimer(found).work;
    runReportingAllFaults(*this, work);
}

MacScheduler::Timer MacScheduler::takeTimer(std::map<TimerIdentifier, Timer>::iterator entry) {
    auto timer = std::move(entry->second);
    timers_.erase(entry);
    CFRunLoopTimerInvalidate(timer.timer.get());
    return timer;
}

void MacScheduler::cancelTimer(TimerIdentifier timer) {
    assertMainThread();
    const auto found = timers_.find(timer);
    if (found != timers_.end()) takeTimer(found);
}

std::unique_ptr<SerialQueue> MacScheduler::makeSerialQueue(std::string label) {
    assertMainThread();
    return std::make_unique<DispatchQueue>(*this, std::move(label));
}

void MacScheduler::concurrentPerform(std::size_t count, const std::function<void(std::size_t)>& body) {
    assert(!isMainThread());
    dispatch_apply(count, DISPATCH_APPLY_AUTO, ^(std::size_t share) {
        runReportingAllFaults(*this, [&body, share] { body(share); });
    });
}

} // namespace tavrin::macos
