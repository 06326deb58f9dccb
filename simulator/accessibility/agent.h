#pragma once

#include "accessibility/branch.h"
#include "menu_bar/arrangement.h"
#include "menu_bar/status_item_table.h"
#include "system/process_table.h"
#include "system/screens_model.h"
#include "vocabulary/vocabulary.h"

namespace mac_model {

/// What the agent of macOS 27 has in its own tree of the items that it draws; in which shape is uncertain
/// (`AgentTree`), and so is whose the items' elements are (`AgentOwners`):
///
///     agent's application ─ window of each display ─ (group ─) item, once more
///                                                  └ button "«", while some find no room
class AgentBranch final : public Branch {
  public:
    AgentBranch(const StatusItemTable& items, const Arrangement& arrangement, const ScreensModel& screens,
                const ProcessTable& processes, const Uncertainties& uncertainties)
        : items_(items)
        , arrangement_(arrangement)
        , screens_(screens)
        , processes_(processes)
        , uncertainties_(uncertainties) {}

    bool exists(const ElementKey&) const override;
    std::string role(const ElementKey&) const override;
    std::optional<ElementKey> parent(const ElementKey&) const override;
    std::optional<Keys> children(const ElementKey&) const override;
    std::optional<Rect> frame(const ElementKey&) const override;
    AttributeResult attribute(const ElementKey&, std::string_view name) const override;
    std::vector<std::string> actionNames(const ElementKey&) const override;

    /// Empty for all processes but the agent's.
    Keys windowsOf(ProcessIdentifier) const;

  private:
    const StatusItemRecord& item(const ElementKey& key) const {
        return *items_.find(StatusItemIdentifier{key.owner});
    }

    bool isAgent(ProcessIdentifier) const;
    const HostedBar* barOf(const ElementKey&) const;
    const ScreenSpec& screenOf(const ElementKey&) const;
    bool isSystems(const StatusItemRecord&) const;
    bool isListed(const PlacedItem&) const;
    ElementKey keyOf(const PlacedItem&, std::uint32_t window) const;
    Keys itemsIn(const ElementKey& windowOrGroup) const;
    Keys groupsIn(const ElementKey& window) const;
    Rect frameAround(const Keys&) const;
    std::optional<Rect> itemFrame(const ElementKey&) const;
    AttributeResult ofItem(const StatusItemRecord&, std::string_view name) const;

    const StatusItemTable& items_;
    const Arrangement& arrangement_;
    const ScreensModel& screens_;
    const ProcessTable& processes_;
    const Uncertainties& uncertainties_;
};

} // namespace mac_model
