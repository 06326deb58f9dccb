#pragma once

#include "concurrency/scheduler.h"
#include "platform/macos/support/apple.h"
#include "platform/macos/support/cf_reference.h"
#include "platform/macos/system/work_list.h"

#include <map>
#include <memory>

namespace tavrin::macos {

/// The main run loop, Grand Central Dispatch and the clock that stands still while the computer sleeps, as
/// the run loop's timers do. Work and timers of the main thread also run while a menu tracks the mouse and
/// while a modal window shows, nested inside the work that has opened it. NSExceptions are reported as C++
/// exceptions are. Made and destroyed on the main thread.
class MacScheduler final : public Scheduler {
  public:
    MacScheduler();
    ~MacScheduler() override;

    Seconds now() const override;
    bool isMainThread() const override;
    void post(Work work) override;
    TimerIdentifier callAfter(Seconds delay, Work work) override;
    TimerIdentifier callEvery(Seconds interval, Work work) override;
    void cancelTimer(TimerIdentifier timer) override;
    std::unique_ptr<SerialQueue> makeSerialQueue(std::string label) override;
    void concurrentPerform(std::size_t count, const std::function<void(std::size_t)>& body) override;

  private:
    struct Timer {
        CfReference<CFRunLoopTimerRef> timer;
        Work work;
        bool isRepeating = false;
    };

    TimerIdentifier addTimer(Seconds delay, Seconds interval, Work work);
    void fire(TimerIdentifier identifier);
    Timer takeTimer(std::map<TimerIdentifier, Timer>::iterator entry);

    std::uint64_t nextTimer_ = 1;
    std::map<TimerIdentifier, Timer> timers_;
    std::shared_ptr<WorkList> posted_; // blocks in the run loop outlive the scheduler
};

/// Calls `work` inside an autorelease pool and reports what leaves it, NSExceptions included. Any thread.
void runReportingAllFaults(const Scheduler& scheduler, const Work& work) noexcept;

} // namespace tavrin::macos
