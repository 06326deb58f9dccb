#pragma once

#include "concurrency/signal.h"
#include "concurrency/task.h"
#include "discovery/menu_bar_item.h"
#include "hiding/skerrow_policy.h"

#include <expected>
#include <optional>
#include <string>

namespace tavrin {

/// A way of hiding items. It is made once, at start, and knows nothing of when to hide.
class HidingMechanism {
  public:
    HidingMechanism() = default;
    HidingMechanism(const HidingMechanism&) = delete;
    HidingMechanism& operator=(const HidingMechanism&) = delete;
    virtual ~HidingMechanism() = default;

    /// Whether the program's own items are where hiding needs them, after a repair where they were not. A
    /// repair that fails tells the user. False also when the awaiting job is cancelled.
    virtual Task<bool> ensureLayout() = 0;

    /// Brings layout and scan up to date before a hide that the user asks for. False as above.
    virtual Task<bool> prepare() = 0;

    /// The reason why nothing can be hidden now, for the user. Asked before `hideNow`.
    virtual std::optional<std::string> refusal() const = 0;

    /// A hide takes three steps: it begins, it is confirmed or says why it isn't, and its effect is watched.
    /// `reveal` ends it at any of them.
    virtual void hideNow() = 0;
    virtual Task<std::expected<void, std::string>> confirmHidden() = 0;
    virtual void didHide() = 0;

    /// Shows everything.
    virtual void reveal() = 0;

    /// Adapts the hiding to the present screens. Called while items are hidden.
    virtual void adaptToScreens() = 0;

    /// Arranges the own items before other items are placed, while everything is shown. True when they were
    /// arranged and so need a moment to settle.
    virtual Task<bool> arrangeForApply() = 0;

    /// The reason why items can't be placed now, for the user. Asked before anything is changed for that.
    virtual std::optional<std::string> obstacleToPlacing() const = 0;

    /// Whether the side of the control that an item lies on decides if it is hidden.
    virtual bool placesByPosition() const = 0;

    /// The hidden set after the user has hidden or shown the item: what hides together goes together.
    virtual HiddenSet setting(const std::string& itemIdentifier, bool hidden, const HiddenSet& set) const;

    /// Whether a hide with this set takes the item away.
    virtual bool isHidden(const MenuBarItemSnapshot& item, const HiddenSet& set) const;

    /// Whether the item can be hidden at all.
    virtual bool canHide(const MenuBarItemSnapshot& item) const { return item.isMovable; }

    /// Whether a press on the control is the effect of a gesture of ours, and no wish of the user. Asked once
    /// for each press.
    virtual bool takesControlPress() { return false; }

    /// Returns when nothing that was asked of macOS can still take effect. Asked when the program ends.
    virtual Task<> settled();

    /// Fires when a hide has turned out to do harm: everything must be shown again and the user told this
    /// sentence.
    Signal<std::string> mustReveal;
};

} // namespace tavrin
