#include "accessibility/actions.h"

namespace mac_model {

void AccessibilityActions::perform(const ElementKey& key, std::string_view action) {
    using Kind = ElementKey::Kind;
    const bool isEntry = key.kind == Kind::StatusEntry || key.kind == Kind::TitleEntry;
    const bool isPress = action != "AXCancel";
    if (key.kind == Kind::StatusItem || key.kind == Kind::HostedItem)
        return actOn(StatusItemIdentifier{key.owner}, action);
    if (key.kind == Kind::Title && isPress) return pressTitle(key.process, key.owner);
    if (isEntry && isPress) return pressEntry(key);
    cancelMenuOf(key);
}

/// Every action does what a click does, whatever its name, but those that the program has named.
void AccessibilityActions::actOn(StatusItemIdentifier item, std::string_view action) {
    if (items_.perform(item, action)) return;
    if (!items_.press(item, StatusItemPress::Left)) surfaces_.toggle(item);
}

void AccessibilityActions::pressTitle(ProcessIdentifier process, std::size_t title) {
    const auto* owner = processes_.menuBarOwner();
    if (owner && owner->identifier == process) applicationMenus_.toggle(title, {});
}

/// The entry runs, or opens its submenu.
void AccessibilityActions::pressEntry(const ElementKey& entry) {
    const MenuPath path(entry.path.begin(), entry.path.end());
    if (entry.kind == ElementKey::Kind::TitleEntry)
        applicationMenus_.choose(entry.process, entry.owner, path);
    else
        surfaces_.choose(StatusItemIdentifier{entry.owner}, path);
}

void AccessibilityActions::cancelMenuOf(const ElementKey& key) {
    if (contents_.isShownAt(key) && !contents_.faultsOf(key.process).ignoresCancel) menus_.close();
}

} // namespace mac_model
