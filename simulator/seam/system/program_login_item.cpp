#include "seam/system/program_login_item.h"

namespace mac_model {

std::expected<void, std::string> ProgramLoginItem::set(bool isRegistered) {
    if (!side_.isOpen()) return {};
    return side_.mac.loginItems.setRegistered(isRegistered);
}

void ProgramLoginItem::openSettings() {
    if (side_.isOpen()) side_.mac.settings.open(SystemSettings::loginItemsLink);
}

} // namespace mac_model
