#include "seam/lies_about_time.h"

#include <set>

namespace mac_model {
namespace {

using namespace tavrin;

struct SwapsPostedWork : PassedOnScheduler {
    using PassedOnScheduler::PassedOnScheduler;

    void post(Work work) override {
        if (++posted % 2 == 0) return truth.post(std::move(work));
        truth.post([this, work = std::move(work)] { truth.post(work); });
    }

    int posted = 0;
};

struct ForgetsToCancel : PassedOnScheduler {
    using PassedOnScheduler::PassedOnScheduler;

    TimerIdentifier callAfter(Seconds delay, Work work) override {
        const auto timer = truth.callAfter(delay, std::move(work));
        if (delay < Seconds{1}) brief.insert(timer);
        return timer;
    }

    TimerIdentifier callEvery(Seconds interval, Work work) override {
        return *brief.insert(truth.callEvery(interval, std::move(work))).first;
    }

    void cancelTimer(TimerIdentifier timer) override {
        if (!brief.contains(timer)) truth.cancelTimer(timer);
    }

    std::set<TimerIdentifier> brief;
};

struct RepeatsAShare : PassedOnScheduler {
    using PassedOnScheduler::PassedOnScheduler;

    void concurrentPerform(std::size_t count, const std::function<void(std::size_t)>& body) override {
        if (count > 0) body(0);
        truth.concurrentPerform(count, body);
    }
};

struct SlowClock : PassedOnScheduler {
    using PassedOnScheduler::PassedOnScheduler;

    Seconds now() const override { return truth.now() / 10; }
};

struct WorksOnTheMainThread : PassedOnScheduler {
    using PassedOnScheduler::PassedOnScheduler;

    struct Queue : SerialQueue {
        explicit Queue(Scheduler& main) : scheduler(main) {}

        const std::string& label() const override { return name; }

        void post(Work work) override {
            constexpr Seconds pace{0.001};
            scheduler.callAfter(pace * ++posted, std::move(work));
        }

        Scheduler& scheduler;
        std::string name = "a queue";
        int posted = 0;
    };

    std::unique_ptr<SerialQueue> makeSerialQueue(std::string label) override {
        const bool isLookedAt = label.ends_with(".order") || label.ends_with(".dying");
        if (!isLookedAt) return truth.makeSerialQueue(std::move(label));
        return std::make_unique<Queue>(truth);
    }
};

struct SwallowsFaults : PassedOnScheduler {
    using PassedOnScheduler::PassedOnScheduler;

    void post(Work work) override {
        truth.post([work = std::move(work)] {
            tavrin::VirtualScheduler nobodyHears;
            tavrin::runReportingFaults(nobodyHears, work);
        });
    }
};

} // namespace

std::vector<PlantedLie> liesAboutTime() {
    constexpr auto family = "scheduler";
    return {
        lie<SlowClock>("slowClock", family,
                       {"Time goes forward, and a wait on the main thread lasts as long as asked.",
                        "Timers fire in the order of their times and never early."}),
        lie<SwapsPostedWork>("swapsPostedWork", family,
                             {"Posted work runs on the main thread in the order of posting.",
                              "Work posted from another thread runs on the main thread in its order."}),
        lie<ForgetsToCancel>("forgetsToCancel", family,
                             {"A cancelled timer never fires.",
                              "A repeating timer goes on until it is cancelled, also by its own work."}),
        lie<RepeatsAShare>("repeatsAShare", family,
                           {"Concurrent shares run once each, and all have ended when the call returns."}),
        lie<WorksOnTheMainThread>(
            "worksOnTheMainThread", family,
            {"A queue runs its work off the main thread, in order, one piece at a time.",
             "A queue that is destroyed finishes the piece in progress and drops the others."}),
        lie<SwallowsFaults>("swallowsFaults", family,
                            {"An exception that leaves a piece of work is reported and stops nothing else."}),
    };
}

} // namespace mac_model
