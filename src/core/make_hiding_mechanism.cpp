#include "core/make_hiding_mechanism.h"

#include "discovery/accessibility_menu_bar_scanner.h"
#include "discovery/hosted/native_scan.h"
#include "hiding/spacer_hiding.h"
#include "native/restriction_hiding.h"
#include "platform/application.h"

#include <utility>

namespace tavrin {

std::unique_ptr<BarScan> makeBarScan(MenuBarRuntimeMode mode, const Platform& platform) {
    AccessibilityMenuBarScanner applications(platform.scheduler, platform.accessibility, platform.defaults,
                                             platform.workspace, platform.text);
    if (mode == MenuBarRuntimeMode::divider)
        return std::make_unique<AccessibilityMenuBarScanner>(std::move(applications));
    return std::make_unique<NativeScan>(std::move(applications),
                                        MenuBarAgentScanner(platform.accessibility, platform.text),
                                        platform.application.processIdentifier());
}

std::unique_ptr<HidingMechanism> makeHidingMechanism(MenuBarRuntimeMode mode, const HidingParts& parts) {
    if (mode == MenuBarRuntimeMode::divider)
        return std::make_unique<SpacerHiding>(parts.platform, parts.items, parts.inventory, parts.hiddenItems,
                                              parts.failure);
    return std::make_unique<RestrictionHiding>(RestrictionHiding::Uses{.platform = parts.platform,
                                                                       .activity = parts.activity,
                                                                       .items = parts.items,
                                                                       .inventory = parts.inventory,
                                                                       .hiddenItems = parts.hiddenItems,
                                                                       .settings = parts.settings});
}

} // namespace tavrin
