#include "concurrency/virtual_scheduler.h"

#include "concurrency/baton_thread.h"

#include <algorithm>
#include <cassert>
#include <utility>
#include <vector>

namespace tavrin {

class VirtualQueue final : public SerialQueue {
  public:
    VirtualQueue(VirtualScheduler& scheduler, std::string label)
        : scheduler_(scheduler)
        , label_(std::move(label))
        , lane_(scheduler.openLane()) {}

    ~VirtualQueue() override { scheduler_.closeLane(lane_); }

    const std::string& label() const override { return label_; }

    void post(Work work) override { scheduler_.postOn(lane_, std::move(work)); }

  private:
    VirtualScheduler& scheduler_;
    std::string label_;
    VirtualScheduler::Lane lane_;
};

VirtualScheduler::VirtualScheduler() = default;

VirtualScheduler::~VirtualScheduler() {
    assert(lanes_.empty() && "queues end before their scheduler");
    // Dropped work may own objects that post and cancel while they are destroyed.
    timers_.clear();
    while (!events_.empty()) std::exchange(events_, {}).clear();
}

void VirtualScheduler::add(Seconds delay, Event event) {
    const DueKey key{(now_ + std::max(delay, Seconds{0})).count(), nextSequence_++};
    if (event.timer != TimerIdentifier::None) timers_[event.timer] = key;
    events_.emplace(key, std::move(event));
}

TimerIdentifier VirtualScheduler::addTimer(Seconds delay, Event event) {
    const auto timer = TimerIdentifier{nextTimer_++};
    event.timer = timer;
    add(delay, std::move(event));
    return timer;
}

void VirtualScheduler::post(Work work) { add(Seconds{0}, {.work = std::move(work)}); }

void VirtualScheduler::postOn(Lane lane, Work work) {
    if (lanes_.at(lane).hurries) return;
    add(Seconds{0}, {.lane = lane, .work = std::move(work)});
}

TimerIdentifier VirtualScheduler::callAfter(Seconds delay, Work work) {
    assert(isMainThread());
    return addTimer(delay, {.kind = Kind::Timer, .work = std::move(work)});
}

TimerIdentifier VirtualScheduler::callEvery(Seconds interval, Work work) {
    assert(isMainThread() && interval > Seconds{0});
    return addTimer(
        interval, {.kind = Kind::RepeatingTimer, .work = sharedWork(std::move(work)), .interval = interval});
}

TimerIdentifier VirtualScheduler::callInWorldAfter(Seconds delay, Work work) {
    return addTimer(delay, {.lane = worldLane, .kind = Kind::Timer, .work = std::move(work)});
}

void VirtualScheduler::cancelTimer(TimerIdentifier timer) {
    const auto found = timers_.find(timer);
    if (found == timers_.end()) return;
    const auto key = found->second;
    timers_.erase(found);
    // Extracted, because destroying the work may cancel other timers.
    const auto dropped = events_.extract(key);
}

std::unique_ptr<SerialQueue> VirtualScheduler::makeSerialQueue(std::string label) {
    return std::make_unique<VirtualQueue>(*this, std::move(label));
}

bool VirtualScheduler::isBlocked(const Event& event) const {
    if (event.lane == mainLane) return isMainBlocked_;
    if (event.lane == worldLane || event.kind == Kind::GoOn) return false;
    return lanes_.at(event.lane).isBusy;
}

VirtualScheduler::Events::iterator VirtualScheduler::nextRunnable() {
    return std::ranges::find_if(events_, [this](const auto& entry) { return !isBlocked(entry.second); });
}

VirtualScheduler::Events::iterator VirtualScheduler::nextDueBy(Seconds limit) {
    const auto next = nextRunnable();
    return next != events_.end() && Seconds{next->first.due} <= limit ? next : events_.end();
}

VirtualScheduler::Events::iterator VirtualScheduler::nextLasting() {
    return std::ranges::find_if(events_,
                                [](const auto& entry) { return entry.second.kind != Kind::RepeatingTimer; });
}

VirtualScheduler::Events::node_type VirtualScheduler::take(Events::iterator next) {
    auto node = events_.extract(next);
    now_ = std::max(now_, Seconds{node.key().due});
    return node;
}

void VirtualScheduler::run(Events::iterator next) {
    auto node = take(next);
    auto& event = node.mapped();
    if (event.timer != TimerIdentifier::None) timers_.erase(event.timer);
    if (event.kind == Kind::RepeatingTimer) add(event.interval, event);
    if (event.lane < firstQueueLane) {
        runReportingFaults(*this, event.work);
    } else {
        runOnThread(lanes_.at(event.lane), event);
    }
}

void VirtualScheduler::runOnThread(QueueLane& lane, Event& event) {
    const auto begin = [&] {
        return lane.thread->begin([this, work = std::move(event.work)] { runReportingFaults(*this, work); });
    };
    lane.isBusy = true;
    const auto state = event.kind == Kind::GoOn ? lane.thread->goOn() : begin();
    lane.isBusy = state == BatonThread::State::Yielded;
}

void VirtualScheduler::runWhileSelected(Selection select) {
    const auto outer = std::exchange(select_, std::move(select));
    for (auto next = select_(); next != events_.end(); next = select_()) run(next);
    select_ = outer;
}

void VirtualScheduler::runUntil(Seconds until) {
    runWhileSelected([this, until] { return nextDueBy(until); });
    now_ = std::max(now_, until);
}

void VirtualScheduler::advance(Seconds duration) { runUntil(now_ + duration); }

bool VirtualScheduler::settle(Seconds limit) {
    const auto deadline = now_ + limit;
    runWhileSelected([this, deadline] {
        const auto lasting = nextLasting();
        const bool isPending = lasting != events_.end() && Seconds{lasting->first.due} <= deadline;
        return isPending ? nextDueBy(deadline) : events_.end();
    });
    if (nextLasting() == events_.end()) return true;
    runUntil(deadline);
    return false;
}

void VirtualScheduler::spend(Seconds duration) {
    if (isMainThread()) return blockMain(duration);
    const auto lane = currentLane();
    if (lanes_.at(lane).hurries) return;
    add(duration, goOnOf(lane));
    if (!goesOnAtOnce(lane)) yield(lane);
}

bool VirtualScheduler::goesOnAtOnce(Lane lane) {
    const auto next = select_();
    if (next == events_.end() || next->second.kind != Kind::GoOn || next->second.lane != lane) return false;
    take(next);
    return true;
}

void VirtualScheduler::blockMain(Seconds duration) {
    const bool wasBlocked = std::exchange(isMainBlocked_, true);
    runUntil(now_ + duration);
    isMainBlocked_ = wasBlocked;
}

void VirtualScheduler::concurrentPerform(std::size_t count, const std::function<void(std::size_t)>& body) {
    if (count == 0) return;
    const auto caller = currentLane();
    constexpr std::size_t widthMax = 8; // about what a system's own pool would use
    std::vector<Lane> workers(std::min(count, widthMax));
    std::size_t next = 0;
    auto running = workers.size();
    for (auto& worker : workers) {
        worker = openLane();
        lanes_.at(worker).parent = caller;
        lanes_.at(worker).hurries = lanes_.at(caller).hurries;
        add(Seconds{0}, {.lane = worker, .work = [&, caller] {
                             while (next < count) {
                                 runReportingFaults(*this, [&, share = next++] { body(share); });
                             }
                             if (--running == 0) add(Seconds{0}, goOnOf(caller));
                         }});
    }
    yield(caller);
    for (const auto worker : workers) endLane(worker);
}

std::optional<Seconds> VirtualScheduler::nextDue() const {
    if (events_.empty()) return std::nullopt;
    return Seconds{events_.begin()->first.due};
}

std::size_t VirtualScheduler::timersPending() const {
    return static_cast<std::size_t>(std::ranges::count_if(
        timers_, [this](const auto& entry) { return events_.at(entry.second).lane == mainLane; }));
}

VirtualScheduler::Lane VirtualScheduler::openLane() {
    const auto lane = nextLane_++;
    auto& thread = lanes_[lane].thread;
    if (restingThreads_.empty()) {
        thread = std::make_unique<BatonThread>();
    } else {
        thread = std::move(restingThreads_.back());
        restingThreads_.pop_back();
    }
    return lane;
}

void VirtualScheduler::closeLane(Lane lane) {
    assert(isMainThread());
    hurry(lane);
    dropUnbegun(lane);
    while (lanes_.at(lane).isBusy) {
        const auto next = std::ranges::find_if(events_, [&](const auto& entry) {
            return entry.second.lane >= firstQueueLane && belongsTo(entry.second.lane, lane) &&
                   !isBlocked(entry.second);
        });
        assert(next != events_.end());
        auto node = events_.extract(next);
        runOnThread(lanes_.at(node.mapped().lane), node.mapped());
    }
    endLane(lane);
}

void VirtualScheduler::endLane(Lane lane) {
    restingThreads_.push_back(std::move(lanes_.at(lane).thread));
    lanes_.erase(lane);
}

void VirtualScheduler::hurry(Lane ending) {
    for (auto& [lane, state] : lanes_) state.hurries = state.hurries || belongsTo(lane, ending);
}

void VirtualScheduler::dropUnbegun(Lane lane) {
    // Destroying work may post or cancel other work, so it happens after the search.
    std::vector<Work> dropped;
    for (auto entry = events_.begin(); entry != events_.end();) {
        const bool isUnbegun = entry->second.lane == lane && entry->second.kind != Kind::GoOn;
        if (isUnbegun) dropped.push_back(std::move(entry->second.work));
        entry = isUnbegun ? events_.erase(entry) : std::next(entry);
    }
}

bool VirtualScheduler::belongsTo(Lane lane, Lane ancestor) const {
    while (lane >= firstQueueLane && lane != ancestor) lane = lanes_.at(lane).parent;
    return lane == ancestor;
}

VirtualScheduler::Lane VirtualScheduler::currentLane() const {
    const auto found =
        std::ranges::find_if(lanes_, [](const auto& entry) { return entry.second.thread->isCurrent(); });
    assert(found != lanes_.end() && "only threads of this scheduler may block in it");
    return found->first;
}

void VirtualScheduler::yield(Lane lane) { lanes_.at(lane).thread->yield(); }

} // namespace tavrin
