#pragma once

#include "concurrency/scheduler.h"
#include "platform/macos/system/work_list.h"

#include <dispatch/dispatch.h>
#include <memory>
#include <string>

namespace tavrin::macos {

/// A serial queue on a queue of Grand Central Dispatch. Its faults go to `scheduler`, which outlives it.
class DispatchQueue final : public SerialQueue {
  public:
    DispatchQueue(Scheduler& scheduler, std::string label);
    DispatchQueue(const DispatchQueue&) = delete;
    DispatchQueue& operator=(const DispatchQueue&) = delete;
    ~DispatchQueue() override;

    const std::string& label() const override { return label_; }

    void post(Work work) override;

  private:
    Scheduler& scheduler_;
    std::string label_;
    std::shared_ptr<WorkList> pending_;
    dispatch_queue_t queue_;
};

} // namespace tavrin::macos
