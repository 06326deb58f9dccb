#pragma once

#include "discovery/item_inventory.h"
#include "hiding/failure_message.h"
#include "hiding/hidden_items.h"
#include "hiding/hiding_mechanism.h"
#include "hiding/own_control_check.h"
#include "hiding/own_status_items.h"
#include "hiding/status_item_geometry_keeper.h"
#include "platform/platform.h"

#include <expected>
#include <optional>
#include <string>

namespace tavrin {

/// Hides by a long spacer to the left of the control, which pushes everything left of it off the screen.
class SpacerHiding final : public HidingMechanism {
  public:
    SpacerHiding(const Platform& platform, OwnStatusItems& items, ItemInventory& inventory,
                 const HiddenItems& hiddenItems, FailureMessage& failure);

    Task<bool> ensureLayout() override { return geometry_.ensureExpandedStatusItemGeometry(); }

    Task<bool> prepare() override;
    std::optional<std::string> refusal() const override;
    void hideNow() override;
    Task<std::expected<void, std::string>> confirmHidden() override;
    void didHide() override;
    void reveal() override;
    void adaptToScreens() override;

    Task<bool> arrangeForApply() override { return ensureLayout(); }

    std::optional<std::string> obstacleToPlacing() const override;

    bool placesByPosition() const override { return true; }

  private:
    const Platform& platform_;
    OwnStatusItems& items_;
    ItemInventory& inventory_;
    const HiddenItems& hiddenItems_;
    StatusItemGeometryKeeper geometry_;
    OwnControlCheck controlCheck_;
};

} // namespace tavrin
