#pragma once

#include "accessibility/element.h"
#include "accessibility/menu_contents.h"
#include "menu_bar/arrangement.h"
#include "system/process_table.h"
#include "system/screens_model.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mac_model {

/// What the processes' Accessibility trees hold now:
///
///     application ─ menu bar ─ titles ─ menu ─ entries ─ menu …            (regular applications)
///                 └ extras bar ─ groups … ─ status item ─ menu ─ entries …
///
/// The menu of a status item may be empty while it is closed, and its elements die when it closes. Windows,
/// popovers and the like are not in the tree. Ask `exists` first; the other queries hold for living elements.
class AccessibilityTree {
  public:
    AccessibilityTree(const ProcessTable& processes, const StatusItemTable& items,
                      const Arrangement& arrangement, const ScreensModel& screens,
                      const Uncertainties& uncertainties, const MenuContents& menus)
        : processes_(processes)
        , items_(items)
        , arrangement_(arrangement)
        , screens_(screens)
        , uncertainties_(uncertainties)
        , menus_(menus) {}

    bool exists(const ElementKey&) const;
    tavrin::AttributeResult attribute(const ElementKey&, std::string_view name) const;
    std::vector<std::string> actionNames(const ElementKey&) const;
    bool isEnabled(const ElementKey&) const;

  private:
    using Kind = ElementKey::Kind;
    using Keys = std::vector<ElementKey>;

    const Process& process(const ElementKey& key) const { return *processes_.find(key.process); }

    const StatusItemRecord& item(const ElementKey& key) const {
        return *items_.find(StatusItemIdentifier{key.owner});
    }

    bool hasItem(const ElementKey&) const;
    bool hasMenuBar(const ElementKey&) const;
    std::vector<MenuItemSpec> entriesOfMenu(const ElementKey& menu) const;
    std::optional<MenuItemSpec> entry(const ElementKey&) const;

    std::string role(const ElementKey&) const;
    std::optional<ElementKey> parent(const ElementKey&) const;
    /// None when the element supports no children.
    std::optional<Keys> children(const ElementKey&) const;
    std::optional<tavrin::Rect> frame(const ElementKey&) const;
    Keys itemsInExtrasBar(tavrin::ProcessIdentifier) const;

    tavrin::AttributeResult geometry(const ElementKey&, std::string_view name) const;
    tavrin::AttributeResult own(const ElementKey&, std::string_view name) const;
    tavrin::AttributeResult ofApplication(const ElementKey&, std::string_view name) const;
    tavrin::AttributeResult ofItem(const ElementKey&, std::string_view name) const;
    tavrin::AttributeResult shownMenu(const ElementKey&) const;
    tavrin::AttributeResult ofEntry(const ElementKey&, std::string_view name) const;
    tavrin::AttributeResult ofTitle(const ElementKey&, std::string_view name) const;

    const ProcessTable& processes_;
    const StatusItemTable& items_;
    const Arrangement& arrangement_;
    const ScreensModel& screens_;
    const Uncertainties& uncertainties_;
    const MenuContents& menus_;
};

} // namespace mac_model
