#pragma once

#include "accessibility/branch.h"
#include "accessibility/menu_contents.h"
#include "menu_bar/arrangement.h"
#include "menu_bar/status_item_table.h"
#include "system/screens_model.h"
#include "vocabulary/vocabulary.h"

namespace mac_model {

/// The status items of a process:
///
///     extras bar ─ groups … ─ status item ─ …
class ExtrasBranch final : public Branch {
  public:
    ExtrasBranch(const StatusItemTable& items, const Arrangement& arrangement, const ScreensModel& screens,
                 const MenuContents& menus)
        : items_(items)
        , arrangement_(arrangement)
        , screens_(screens)
        , menus_(menus) {}

    bool exists(const ElementKey&) const override;
    std::string role(const ElementKey&) const override;
    std::optional<ElementKey> parent(const ElementKey&) const override;
    std::optional<Keys> children(const ElementKey&) const override;
    std::optional<Rect> frame(const ElementKey&) const override;
    AttributeResult attribute(const ElementKey&, std::string_view name) const override;
    bool isEnabled(const ElementKey&) const override;
    std::vector<std::string> actionNames(const ElementKey&) const override;

    /// The items of the process that Accessibility knows.
    Keys itemsOf(ProcessIdentifier) const;

  private:
    const StatusItemRecord& item(const ElementKey& key) const {
        return *items_.find(StatusItemIdentifier{key.owner});
    }

    /// The element `depth` groups below the bar, on the way to the item.
    ElementKey onTheWay(const ElementKey& key, std::uint32_t depth) const;
    Keys menuOf(const ElementKey&) const;
    AttributeResult ofItem(const ElementKey&, std::string_view name) const;

    const StatusItemTable& items_;
    const Arrangement& arrangement_;
    const ScreensModel& screens_;
    const MenuContents& menus_;
};

} // namespace mac_model
