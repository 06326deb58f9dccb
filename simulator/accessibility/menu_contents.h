#pragma once

#include "accessibility/open_menu.h"
#include "concurrency/virtual_scheduler.h"
#include "system/faults.h"
#include "system/process_table.h"

#include <optional>

namespace mac_model {

/// What Accessibility is told of the menus of processes that are slow to fill them or hide them.
class MenuContents {
  public:
    MenuContents(const tavrin::VirtualScheduler& scheduler, const ProcessTable& processes,
                 const Faults& faults, const std::optional<OpenMenu>& open)
        : scheduler_(scheduler)
        , processes_(processes)
        , faults_(faults)
        , open_(open) {}

    MenuFaults faultsOf(tavrin::ProcessIdentifier process) const {
        const auto* found = processes_.find(process);
        const auto faulty =
            found ? faults_.menus.find(found->application.bundleIdentifier) : faults_.menus.end();
        return faulty == faults_.menus.end() ? MenuFaults{} : faulty->second;
    }

    /// Whether the menu lists its entries now, as far as that depends on its being open.
    bool areListed(const ElementKey& menu) const {
        const auto fillsAfter = faultsOf(menu.process).fillsAfter;
        if (!fillsAfter) return true;
        const auto since = open_ ? open_->openSince(menu) : std::nullopt;
        return since && scheduler_.now() >= *since + *fillsAfter;
    }

    /// Whether the status item or title says that its menu is shown.
    bool isShownAt(const ElementKey& itemOrTitle) const { return open_ && open_->isOf(itemOrTitle); }

  private:
    const tavrin::VirtualScheduler& scheduler_;
    const ProcessTable& processes_;
    const Faults& faults_;
    const std::optional<OpenMenu>& open_;
};

} // namespace mac_model
