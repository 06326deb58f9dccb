#include "concurrency/scheduler.h"

#include <exception>

namespace tavrin {

void runReportingFaults(const Scheduler& scheduler, const Work& work) noexcept {
    try {
        work();
    } catch (const std::exception& fault) {
        scheduler.reportFault(fault.what());
    } catch (...) {
        scheduler.reportFault("an exception that is no std::exception");
    }
}

} // namespace tavrin
