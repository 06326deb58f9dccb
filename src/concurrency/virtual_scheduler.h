#pragma once

#include "concurrency/due_work.h"
#include "concurrency/scheduler.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace tavrin {

class BatonThread;

/// A scheduler whose time moves only when it is told to, so that waits cost no wall time. Queues run on
/// threads of their own, but exactly one thread runs at any moment and hands the baton on only where it
/// blocks: the order of everything is fixed by due time, then by order of posting, and two runs are alike to
/// the last event.
///
/// All operations belong to the thread that made the scheduler, except those that `Scheduler` gives to any
/// thread (which here means the threads of its queues) and `spend`.
class VirtualScheduler final : public Scheduler {
  public:
    VirtualScheduler();
    ~VirtualScheduler() override;

    Seconds now() const override { return now_; }

    bool isMainThread() const override { return std::this_thread::get_id() == mainThread_; }

    void post(Work work) override;
    TimerIdentifier callAfter(Seconds delay, Work work) override;
    TimerIdentifier callEvery(Seconds interval, Work work) override;
    void cancelTimer(TimerIdentifier timer) override;
    std::unique_ptr<SerialQueue> makeSerialQueue(std::string label) override;
    void concurrentPerform(std::size_t count, const std::function<void(std::size_t)>& body) override;

    /// Work of the world around the program: it runs when due even while the program's main thread is
    /// blocked.
    TimerIdentifier callInWorldAfter(Seconds delay, Work work);

    /// Blocks the calling thread for `duration` of virtual time, as a call into a slow process would. Other
    /// threads and the world go on meanwhile. Any thread of this scheduler.
    void spend(Seconds duration);

    /// Runs all that falls due within `duration` and leaves the time there.
    void advance(Seconds duration);

    /// Lets time go on while nothing runs, as for a computer that sleeps. What fell due meanwhile runs next.
    void passAsleep(Seconds duration) { now_ += duration; }

    /// Runs until nothing is left to do but repeating timers, or until `limit` has passed; says whether it
    /// settled.
    bool settle(Seconds limit);

    /// When the next piece of work falls due; none when there is none.
    std::optional<Seconds> nextDue() const;

    /// Timers of the main thread that have not fired, repeating ones included; posted work does not count.
    std::size_t timersPending() const;

  private:
    friend class VirtualQueue;
    using Lane = std::size_t;
    static constexpr Lane mainLane = 0;
    static constexpr Lane worldLane = 1;
    static constexpr Lane firstQueueLane = 2;

    enum class Kind { Post, Timer, RepeatingTimer, GoOn };

    struct Event {
        Lane lane = mainLane;
        Kind kind = Kind::Post;
        Work work;
        Seconds interval{0};
        TimerIdentifier timer = TimerIdentifier::None;
    };

    static Event goOnOf(Lane lane) { return {.lane = lane, .kind = Kind::GoOn, .work = nullptr}; }

    using Events = std::map<DueKey, Event>;

    struct QueueLane {
        std::unique_ptr<BatonThread> thread;
        Lane parent = mainLane; // the lane that waits for this one inside concurrentPerform
        bool isBusy = false;
        bool hurries = false; // its queue ends: waits no longer cost anything, and nothing new begins
    };

    TimerIdentifier addTimer(Seconds delay, Event event);
    void add(Seconds delay, Event event);
    /// Runs the pieces of work that `select` chooses, one after the other, until it chooses none.
    using Selection = std::function<Events::iterator()>;
    void runWhileSelected(Selection select);
    Events::iterator nextRunnable();
    Events::iterator nextDueBy(Seconds limit);
    Events::iterator nextLasting();
    Events::node_type take(Events::iterator next);
    bool isBlocked(const Event& event) const;
    void run(Events::iterator next);
    /// Lets the lane go on without handing the baton back and forth when nothing else runs before it.
    bool goesOnAtOnce(Lane lane);
    void postOn(Lane lane, Work work);
    void runOnThread(QueueLane& lane, Event& event);
    void runUntil(Seconds until);
    void blockMain(Seconds duration);
    Lane openLane();
    void closeLane(Lane lane);
    void endLane(Lane lane);
    void hurry(Lane ending);
    void dropUnbegun(Lane lane);
    bool belongsTo(Lane lane, Lane ancestor) const;
    Lane currentLane() const;
    void yield(Lane lane);

    std::thread::id mainThread_ = std::this_thread::get_id();
    Seconds now_{0};
    std::uint64_t nextSequence_ = 1;
    std::uint64_t nextTimer_ = 1;
    Events events_;
    std::map<TimerIdentifier, DueKey> timers_;
    std::map<Lane, QueueLane> lanes_;
    std::vector<std::unique_ptr<BatonThread>> restingThreads_;
    Selection select_; // of the innermost loop
    Lane nextLane_ = firstQueueLane;
    bool isMainBlocked_ = false;
};

} // namespace tavrin
