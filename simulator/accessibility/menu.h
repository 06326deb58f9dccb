#pragma once

#include "accessibility/branch.h"
#include "accessibility/menu_contents.h"
#include "menu_bar/status_item_table.h"
#include "system/process_table.h"
#include "vocabulary/vocabulary.h"

namespace mac_model {

/// The menus under status items and menu bar titles:
///
///     … ─ menu ─ entries ─ menu …
///
/// The menu of a status item may be empty while it is closed, and its elements die when it closes.
class MenuBranch final : public Branch {
  public:
    MenuBranch(const ProcessTable& processes, const StatusItemTable& items, const Branch& extras,
               const Branch& application, const MenuContents& menus, const Uncertainties& uncertainties)
        : processes_(processes)
        , items_(items)
        , extras_(extras)
        , application_(application)
        , menus_(menus)
        , uncertainties_(uncertainties) {}

    bool exists(const ElementKey&) const override;
    std::string role(const ElementKey&) const override;
    std::optional<ElementKey> parent(const ElementKey&) const override;
    std::optional<Keys> children(const ElementKey&) const override;

    /// Accessibility isn't told where a menu opens.
    std::optional<Rect> frame(const ElementKey&) const override { return std::nullopt; }

    AttributeResult attribute(const ElementKey&, std::string_view name) const override;
    bool isEnabled(const ElementKey&) const override;
    std::vector<std::string> actionNames(const ElementKey&) const override;

  private:
    const StatusItemRecord& item(const ElementKey& key) const {
        return *items_.find(StatusItemIdentifier{key.owner});
    }

    bool existsUnderItem(const ElementKey&) const;
    bool isDisabledBehind(const ElementKey&) const;
    const std::vector<MenuItemSpec>& entriesOfMenu(const ElementKey& menu,
                                                   std::vector<MenuItemSpec>& made) const;
    std::optional<MenuItemSpec> entry(const ElementKey&) const;
    Keys entriesIn(const ElementKey& menu) const;

    const ProcessTable& processes_;
    const StatusItemTable& items_;
    const Branch& extras_;
    const Branch& application_;
    const MenuContents& menus_;
    const Uncertainties& uncertainties_;
};

} // namespace mac_model
