#include "core/hiding_core.h"

#include "core/make_hiding_mechanism.h"
#include "platform/application.h"
#include "platform/workspace.h"

#include <utility>

namespace tavrin {

HidingCore::HidingCore(const Platform& platform, AccessibilityPermission& permission,
                       std::function<void(StatusItem&)> dressControl)
    : mode(runtimeMode(platform.workspace.operatingSystemVersion()))
    , settings(platform.defaults)
    , hiddenItems(settings, platform.application.bundleIdentifier())
    , statusItems(platform, settings, mode, std::move(dressControl))
    , inventory(platform, permission, makeBarScan(mode, platform), [this] { return statusItems.boundary(); })
    , mechanism(makeHidingMechanism(mode, {.platform = platform,
                                           .activity = activity,
                                           .items = statusItems,
                                           .inventory = inventory,
                                           .hiddenItems = hiddenItems,
                                           .settings = settings,
                                           .failure = failure}))
    , hiding(platform.scheduler, settings, activity, *mechanism, failure)
    , movement(platform)
    , placer(platform.screens, statusItems, inventory, hiddenItems, movement)
    , applier({.scheduler = platform.scheduler,
               .permission = permission,
               .activity = activity,
               .failure = failure,
               .mechanism = *mechanism,
               .hiding = hiding,
               .inventory = inventory,
               .placer = placer})
    , readings{.isCollapsed = activity.isCollapsed,
               .detectedItems = inventory.items(),
               .hiddenItemIdentifiers = hiddenItems.identifiers(),
               .isScanning = inventory.isScanning(),
               .isApplyingConfiguration = activity.isApplyingConfiguration,
               .applyProgress = applier.progress(),
               .errorMessage = failure.published()} {
    settings.remove(Settings::legacyRescuedItemIdentifiersKey);
}

void HidingCore::setHidden(std::span<const std::string> itemIdentifiers, bool hidden) {
    hiddenItems.set(itemIdentifiers, hidden, [this](const auto& identifier, bool hides, const auto& set) {
        return mechanism->setting(identifier, hides, set);
    });
}

} // namespace tavrin
