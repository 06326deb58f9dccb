#include "platform/macos/system/dispatch_queue.h"

#include "platform/macos/support/main_thread.h"
#include "platform/macos/system/scheduler.h"

#include <utility>

namespace tavrin::macos {

DispatchQueue::DispatchQueue(Scheduler& scheduler, std::string label)
    : scheduler_(scheduler)
    , label_(std::move(label))
    , pending_(std::make_shared<WorkList>())
    , queue_(dispatch_queue_create(label_.c_str(), dispatch_queue_attr_make_with_qos_class(
                                                       DISPATCH_QUEUE_SERIAL, QOS_CLASS_USER_INITIATED, 0))) {
}

DispatchQueue::~DispatchQueue() {
    assertMainThread();
    pending_->end();
    dispatch_sync(queue_, ^{
                  });
}

void DispatchQueue::post(Work work) {
    if (pending_->add(std::move(work)) == WorkList::Added::No) return;
    const auto pending = pending_;
    auto& scheduler = scheduler_;
    dispatch_async(queue_, ^{
        auto next = pending->take();
        if (!next) return;
        runReportingAllFaults(scheduler, [&next] {
            next();
            next = nullptr;
        });
    });
}

} // namespace tavrin::macos
