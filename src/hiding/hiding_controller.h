#pragma once

#include "concurrency/job.h"
#include "hiding/collapse_request_tracker.h"
#include "hiding/item_inventory.h"
#include "hiding/menu_bar_state.h"
#include "hiding/own_status_items.h"
#include "hiding/skerrow_policy.h"
#include "hiding/status_item_geometry_keeper.h"
#include "platform/platform.h"
#include "settings/settings.h"

#include <functional>
#include <optional>
#include <string>

namespace tavrin {

enum class Persist { No, Yes };
enum class OnFailure { StayQuiet, ShowConfiguration };

/// Hides the configured items and reveals them again. Main thread.
class HidingController {
  public:
    struct Hooks {
        std::function<void()> showFailure;                // brings up the window that shows `errorMessage`
        std::function<void()> cancelPendingConfiguration; // ends an apply in progress
    };

    HidingController(const Platform& platform, MenuBarState& state, Settings& settings,
                     MenuBarRuntimeMode mode, OwnStatusItems& items, StatusItemGeometryKeeper& geometry,
                     ItemInventory& inventory, Hooks hooks);
    HidingController(const HidingController&) = delete;
    HidingController& operator=(const HidingController&) = delete;

    void toggleCollapse();

    /// Hides at once when all checks of the last scan allow it; otherwise leaves one sentence in
    /// `errorMessage`.
    bool collapse(Persist persist);
    void expand(Persist persist);

    /// Checks the layout, scans, and then collapses, unless a newer request or `cancelRequests` came in
    /// between.
    void requestCollapse(Persist persist, OnFailure onFailure);
    void cancelRequests();

    /// Fits the spacer to the screens there are now.
    void adaptToScreens();

    /// Puts every hidden item back on the screen without touching the stored choice, and stops all work.
    void restoreForTermination();

    SkerrowPolicy collapsePolicy() const;

  private:
    std::optional<std::string> reasonNotToCollapse() const;
    Task<> performRequest(int request, Persist persist, OnFailure onFailure);
    Task<bool> prepareLayout();
    bool performNativeCollapse();
    void verifyControl();
    void restoreFullMenuBar(std::string message);

    const Platform& platform_;
    MenuBarState& state_;
    Settings& settings_;
    MenuBarRuntimeMode mode_;
    OwnStatusItems& items_;
    StatusItemGeometryKeeper& geometry_;
    ItemInventory& inventory_;
    Hooks hooks_;
    CollapseRequestTracker collapseRequests_;
    Job<> requestTask_;
};

} // namespace tavrin
