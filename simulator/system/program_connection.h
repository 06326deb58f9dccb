#pragma once

#include "concurrency/signal.h"
#include "concurrency/virtual_scheduler.h"
#include "platform/accessibility.h"
#include "vocabulary/vocabulary.h"

#include <functional>
#include <memory>

namespace mac_model {

/// One life of the program's process, as the rest of the Mac sees it. It closes before anything of the
/// program is destroyed: nothing that the program's objects do after that (or leave undone, in a crash) has
/// an effect. Every object that the Mac hands to the program keeps this and asks `isOpen` first.
class ProgramConnection : public std::enable_shared_from_this<ProgramConnection> {
  public:
    ProgramConnection(VirtualScheduler& scheduler, ProcessIdentifier process)
        : scheduler_(scheduler)
        , process_(process) {}

    ProcessIdentifier process() const { return process_; }

    bool isOpen() const { return isOpen_; }

    void close() { isOpen_ = false; }

    /// Calls into the program when its main loop turns; dropped when the process has ended by then.
    void post(Work work) {
        scheduler_.post([self = shared_from_this(), work = std::move(work)] {
            if (self->isOpen()) work();
        });
    }

    /// Posts `handler` for each emission, unless it was unsubscribed meanwhile.
    Subscription relay(Signal<>& signal, std::function<void()> handler);

  private:
    VirtualScheduler& scheduler_;
    ProcessIdentifier process_;
    bool isOpen_ = true;
};

} // namespace mac_model
