#pragma once

#include "accessibility/open_menu.h"
#include "concurrency/virtual_scheduler.h"
#include "screen/menu_tracking.h"
#include "system/menu_faults.h"
#include "vocabulary/vocabulary.h"

#include <optional>

namespace mac_model {

/// Menus as Accessibility sees them, also those of processes that fill them late or hide them.
class MenuContents {
  public:
    MenuContents(const VirtualScheduler&, const ProcessTable&, const Faults&, MenuTracking&);
    MenuContents(const MenuContents&) = delete;
    MenuContents& operator=(const MenuContents&) = delete;

    MenuFaults faultsOf(ProcessIdentifier process) const {
        return menuFaultsOf(process, processes_, faults_);
    }

    /// Whether the menu lists its entries now, as far as that depends on its being open.
    bool areListed(const ElementKey& menu) const;

    /// Whether the menu that is open belongs to the element's status item or title.
    bool isShownAt(const ElementKey& key) const { return open_ && open_->isOf(key); }

    /// A status item's or title's answer when asked for the menu that it shows now.
    AttributeResult shownMenu(const ElementKey& itemOrTitle, const ElementKey& itsMenu) const;

  private:
    void noteOpenMenu();

    const VirtualScheduler& scheduler_;
    const ProcessTable& processes_;
    const Faults& faults_;
    const MenuTracking& menus_;
    std::optional<OpenMenu> open_;
    Subscription menuChanges_;
};

} // namespace mac_model
