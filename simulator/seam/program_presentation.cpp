#include "seam/program_presentation.h"

#include "menu_bar/press_place.h"
#include "seam/program_alert.h"
#include "seam/program_panel.h"
#include "seam/program_popover.h"
#include "seam/program_window.h"
#include "seam/system/program_status_item.h"

#include <utility>

namespace mac_model {

namespace {

MenuItemSpec entryFor(const tavrin::MenuItem& item) {
    MenuItemSpec entry;
    entry.title = item.title;
    entry.key = item.keyEquivalent;
    if (!entry.key.empty()) entry.modifiers = {Modifier::Command};
    entry.separator = item.isSeparator;
    entry.enabled = item.isEnabled && !item.isSeparator;
    if (item.isChecked) entry.mark = "✓";
    if (item.picture) entry.picture = *item.picture;
    return entry;
}

} // namespace

StatusItemIdentifier identifierOf(const StatusItem& item) {
    const auto* known = dynamic_cast<const ProgramStatusItem*>(&item);
    return known ? known->identifier() : StatusItemIdentifier::None;
}

std::unique_ptr<tavrin::Popover> ProgramPresentation::makePopover(PopoverBehavior behavior,
                                                                  std::function<void()> onClose) {
    return std::make_unique<ProgramPopover>(*this, behavior,
                                            ProgramCallbacks(mac_.program.connection(), std::move(onClose)));
}

std::unique_ptr<tavrin::Window> ProgramPresentation::makeWindow(std::string title,
                                                                std::function<void()> onClose) {
    return std::make_unique<ProgramWindow>(*this, std::move(title),
                                           ProgramCallbacks(mac_.program.connection(), std::move(onClose)));
}

std::unique_ptr<tavrin::Panel> ProgramPresentation::makePanel() {
    return std::make_unique<ProgramPanel>(*this, ProgramCallbacks(mac_.program.connection(), nullptr));
}

std::unique_ptr<tavrin::Alert> ProgramPresentation::showAlert(AlertQuestion question,
                                                              std::function<void(std::size_t)> onAnswer) {
    return std::make_unique<ProgramAlert>(*this, std::move(question), std::move(onAnswer),
                                          ProgramCallbacks(mac_.program.connection(), nullptr));
}

void ProgramPresentation::popUp(tavrin::Menu menu, StatusItem& item, Rect area) {
    const auto connection = mac_.program.connection();
    if (!connection || !item.frame()) return;
    MenuRequest request;
    for (const auto& entry : menu.items) request.items.push_back(entryFor(entry));
    const auto* record = mac_.statusItems.find(identifierOf(item));
    request.area = record ? areaAtPress(*record, area, mac_.screens.screens()) : area;
    request.owner = connection->process();
    request.anchor.item = identifierOf(item);
    request.onChosen = [connection, menu = std::move(menu)](const MenuPath& path) {
        if (const auto& action = menu.items[path.front()].action) connection->post(action);
    };
    menus_.open(std::move(request));
}

void ProgramPresentation::followStatusItems() {
    const auto popovers = popovers_;
    for (auto* popover : popovers) popover->followItem();
}

bool ProgramPresentation::hasVisibleWindows() const {
    const auto connection = mac_.program.connection();
    return connection && hasWindow(stack_, connection->process());
}

} // namespace mac_model
