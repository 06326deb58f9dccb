#pragma once

#include "accessibility/agent.h"
#include "accessibility/branch.h"
#include "accessibility/extras.h"
#include "accessibility/menu_contents.h"
#include "system/process_table.h"
#include "system/screens_model.h"
#include "vocabulary/vocabulary.h"

namespace mac_model {

/// A process's application element, and its menu bar with the titles, which regular applications have:
///
///     application ─ menu bar ─ titles ─ …
class ApplicationBranch final : public Branch {
  public:
    ApplicationBranch(const ProcessTable& processes, const ScreensModel& screens, const ExtrasBranch& extras,
                      const AgentBranch& agent, const MenuContents& menus, const Uncertainties& uncertainties)
        : processes_(processes)
        , screens_(screens)
        , extras_(extras)
        , agent_(agent)
        , menus_(menus)
        , uncertainties_(uncertainties) {}

    bool exists(const ElementKey&) const override;
    std::string role(const ElementKey&) const override;
    std::optional<ElementKey> parent(const ElementKey&) const override;
    std::optional<Keys> children(const ElementKey&) const override;
    std::optional<Rect> frame(const ElementKey&) const override;
    AttributeResult attribute(const ElementKey&, std::string_view name) const override;
    std::vector<std::string> actionNames(const ElementKey&) const override;

  private:
    const Process& process(const ElementKey& key) const { return *processes_.find(key.process); }

    bool hasMenuBar(const ElementKey&) const;
    std::uint64_t titleCount(const ElementKey&) const;
    AttributeResult ofApplication(const ElementKey&, std::string_view name) const;
    AttributeResult extrasBar(const ElementKey&) const;
    AttributeResult windows(const ElementKey&) const;
    AttributeResult ofTitle(const ElementKey&, std::string_view name) const;

    const ProcessTable& processes_;
    const ScreensModel& screens_;
    const ExtrasBranch& extras_;
    const AgentBranch& agent_;
    const MenuContents& menus_;
    const Uncertainties& uncertainties_;
};

} // namespace mac_model
