#include "core/make_hiding_mechanism.h"

#include "hiding/spacer_hiding.h"
#include "hiding/unavailable_hiding.h"

namespace tavrin {

std::unique_ptr<HidingMechanism> makeHidingMechanism(MenuBarRuntimeMode mode, const Platform& platform,
                                                     OwnStatusItems& items, ItemInventory& inventory,
                                                     const HiddenItems& hiddenItems,
                                                     FailureMessage& failure) {
    if (mode == MenuBarRuntimeMode::nativeVisibility) return std::make_unique<UnavailableHiding>();
    return std::make_unique<SpacerHiding>(platform, items, inventory, hiddenItems, failure);
}

} // namespace tavrin
