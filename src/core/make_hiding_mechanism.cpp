#include "core/make_hiding_mechanism.h"

#include "hiding/spacer_hiding.h"
#include "native/restriction_hiding.h"

namespace tavrin {

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
