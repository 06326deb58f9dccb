#include "shortcuts/carbon_hot_key_registrar.h"

#include <utility>

namespace tavrin {

bool CarbonHotKeyRegistrar::registerShortcut(const HotKeyShortcut& shortcut) {
    unregister();
    if (!installHandler()) return false;
    auto registered = hotKeys_.registerHotKey(shortcut.keyCode(), shortcut.carbonModifiers(), identifier_);
    if (!registered) return false;
    carbon_.hotKeyRef = std::move(*registered);
    return true;
}

void CarbonHotKeyRegistrar::unregister() { carbon_.hotKeyRef.reset(); }

bool CarbonHotKeyRegistrar::installHandler() {
    if (!carbon_.eventHandler)
        carbon_.eventHandler = hotKeys_.installPressHandler(
            [this](const HotKeyIdentifier& identifier) { return pressed(identifier); });
    return carbon_.eventHandler != nullptr;
}

HotKeys::Handling CarbonHotKeyRegistrar::pressed(const HotKeyIdentifier& pressed) {
    if (pressed != identifier_ || !carbon_.hotKeyRef) return HotKeys::Handling::NotHandled;
    if (const auto onPressNow = onPress) onPressNow();
    return HotKeys::Handling::Handled;
}

} // namespace tavrin
