#pragma once

#include "system/faults.h"
#include "system/process_table.h"
#include "vocabulary/vocabulary.h"

namespace mac_model {

/// How the menus of this process misbehave.
inline MenuFaults menuFaultsOf(ProcessIdentifier process, const ProcessTable& processes,
                               const Faults& faults) {
    const auto* found = processes.find(process);
    const auto faulty = found ? faults.menus.find(found->application.bundleIdentifier) : faults.menus.end();
    return faulty == faults.menus.end() ? MenuFaults{} : faulty->second;
}

} // namespace mac_model
