#pragma once

#include "concurrency/signal.h"
#include "concurrency/task.h"
#include "discovery/hiding_boundary.h"
#include "hiding/menu_bar_runtime_mode.h"
#include "hiding/menu_bar_sight.h"
#include "platform/platform.h"
#include "platform/status_items.h"
#include "settings/settings.h"
#include "settings/status_item_position_defaults.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace tavrin {

/// What the user sees of the control.
enum class ControlSight {
    drawn,
    barNotVisible, // as little as of every other item, and nothing follows from that
    gone,
};

/// Tavrin's own status items: the control that the user clicks and, where a spacer hides, the invisible
/// spacer to its left.
class OwnStatusItems {
  public:
    /// How the control's place is seeded: at the right end only when no place is stored, at the right end in
    /// any case, or a hair left of it in any case. The last is for a macOS that takes position 0 for none and
    /// puts the item far left.
    enum class PositionSeed { IfAbsent, Force, ForceBesideZero };

    /// `dressControl` gives a new control item its image and its action.
    OwnStatusItems(const Platform& platform, Settings& settings, MenuBarRuntimeMode mode,
                   std::function<void(StatusItem&)> dressControl);

    /// Creates the items at their stored places.
    void configureStatusItems(PositionSeed controlSeed);
    void removeStatusItems();
    /// Creates the spacer, or creates it again, next to the control.
    void configureSpacerItem();

    /// Makes the next items start over under names that macOS has not seen yet.
    void advanceAutosaveVersion();
    void removeSupersededStatusItemDefaults();

    /// None before the items are configured.
    StatusItem* control() const { return controlItem_.get(); }

    /// Points; 0 shows everything. Does nothing without a spacer.
    void setSpacerLength(double length);

    /// The drawings behind the control's glyph: the pill while items are hidden, the glow from 0 to 1.
    void setPillShown(bool shown);
    void setGlow(double glow);

    /// Waits until macOS has placed the items, for 6 s at most: who starts over too early loses the place
    /// that the user chose.
    Task<> waitForPlacement() const;

    /// Whether the control is on its way into the menu bar, or no display is there to have one.
    bool isAwaitingPlacement() const;

    /// Whether the user's switch for Tavrin in System Settings › Menu Bar is off, which macOS has since 26.
    bool isKeptOutOfMenuBar() const;

    /// Why a control that can't be seen can't, and how Tavrin is reached meanwhile: a sentence for the user.
    std::string whyControlIsUnseen() const;

    /// None until macOS has placed the item.
    std::optional<Rect> controlFrame() const;
    std::optional<Rect> spacerFrame() const;

    /// The control's glyph on the screen, wherever it is: the whole of a square item.
    std::optional<Rect> controlGlyphFrame() const { return controlFrame(); }

    /// The glyph when it lies in the status area of a screen's menu bar, right of a notch.
    std::optional<Rect> validControlGlyphFrame() const;

    /// Whether the user can see the menu bar that the control belongs to.
    bool isBarVisible() const { return barSight_.isVisible(controlFrame()); }

    ControlSight controlSight() const;

    /// Fires when the control may have come into sight or gone out of it.
    Subscription onSightChanged(std::function<void()> handler);

    /// Whether the spacer ends where the control begins, or before; a point of overlap is allowed.
    bool isSpacerLeftOfControl() const;

    /// Items left of it are hidden: the spacer ends there.
    HidingBoundary boundary() const;

  private:
    static constexpr Seconds placementWaitMax{6}; // macOS 26 was seen to need about one
    static constexpr Seconds placementPollInterval{0.1};

    void adoptLegacySeparator();
    void forgetHidingFlags();
    void removePositions(const std::string& autosaveName);
    void decorate();
    double boundaryX() const;

    const Platform& platform_;
    Settings& settings_;
    bool usesSpacer_;
    std::function<void(StatusItem&)> dressControl_;
    StatusItemPositionDefaults positions_;
    MenuBarSight barSight_;
    std::int64_t statusItemAutosaveVersion_;
    std::unique_ptr<StatusItem> controlItem_;
    std::unique_ptr<StatusItem> spacerItem_;
    bool isPillShown_ = false;
    double glow_ = 0;
};

} // namespace tavrin
