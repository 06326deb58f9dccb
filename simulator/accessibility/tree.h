#pragma once

#include "accessibility/agent.h"
#include "accessibility/application.h"
#include "accessibility/branch.h"
#include "accessibility/extras.h"
#include "accessibility/menu.h"
#include "vocabulary/vocabulary.h"

#include <string>
#include <string_view>
#include <vector>

namespace mac_model {

/// What the processes' Accessibility trees hold now:
///
///     application ─ menu bar ─ titles ─ menu ─ entries ─ menu …            (regular applications)
///                 └ extras bar ─ groups … ─ status item ─ menu ─ entries …
///
/// and, since macOS 27, the agent's ─ windows ─ items once more (see `AgentBranch`).
///
/// Windows of others, popovers and the like are not in the tree. Ask `exists` first; the other queries hold
/// for living elements.
class AccessibilityTree {
  public:
    AccessibilityTree(const ProcessTable& processes, const StatusItemTable& items,
                      const Arrangement& arrangement, const ScreensModel& screens,
                      const Uncertainties& uncertainties, const MenuContents& menus)
        : processes_(processes)
        , extras_(items, arrangement, screens, menus)
        , agent_(items, arrangement, screens, processes, uncertainties)
        , application_(processes, screens, extras_, agent_, menus, uncertainties)
        , menu_(processes, items, extras_, application_, menus, uncertainties) {}

    bool exists(const ElementKey&) const;
    AttributeResult attribute(const ElementKey&, std::string_view name) const;
    std::vector<std::string> actionNames(const ElementKey&) const;
    bool isEnabled(const ElementKey&) const;

  private:
    const Branch& branchOf(const ElementKey&) const;
    AttributeResult geometry(const ElementKey&, std::string_view name) const;

    const ProcessTable& processes_;
    ExtrasBranch extras_;
    AgentBranch agent_;
    ApplicationBranch application_;
    MenuBranch menu_;
};

} // namespace mac_model
