#include "hiding/hiding_mechanism.h"

namespace tavrin {

HiddenSet HidingMechanism::setting(const std::string& itemIdentifier, bool hidden,
                                   const HiddenSet& set) const {
    return settingItem(itemIdentifier, hidden, set);
}

bool HidingMechanism::isHidden(const MenuBarItemSnapshot& item, const HiddenSet& set) const {
    return isConfiguredHidden(item, set);
}

Task<> HidingMechanism::settled() { co_return; }

} // namespace tavrin
