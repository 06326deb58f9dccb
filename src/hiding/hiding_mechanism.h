#pragma once

#include "concurrency/signal.h"
#include "concurrency/task.h"

#include <expected>
#include <optional>
#include <string>

namespace tavrin {

/// How items are hidden. Made once, at start; it knows nothing of when to hide. Main thread.
class HidingMechanism {
  public:
    HidingMechanism() = default;
    HidingMechanism(const HidingMechanism&) = delete;
    HidingMechanism& operator=(const HidingMechanism&) = delete;
    virtual ~HidingMechanism() = default;

    /// Whether the program's own items are where hiding needs them, after a repair where they were not. A
    /// repair that fails tells the user. False also when the awaiting job is cancelled.
    virtual Task<bool> ensureLayout() = 0;

    /// Before a hide that the user asks for: layout and scan are brought up to date. False as above.
    virtual Task<bool> prepare() = 0;

    /// Why nothing can be hidden now, for the user. Asked before `hideNow`.
    virtual std::optional<std::string> refusal() const = 0;

    /// A hide takes three steps: it begins, it is confirmed or says why it isn't, and its effect is watched.
    /// `reveal` ends it at any of them.
    virtual void hideNow() = 0;
    virtual Task<std::expected<void, std::string>> confirmHidden() = 0;
    virtual void didHide() = 0;

    /// Shows everything.
    virtual void reveal() = 0;

    /// Hides as fits the screens there are now. Called while items are hidden.
    virtual void adaptToScreens() = 0;

    /// Before items are placed, with everything shown: whether the own items have been arranged, so that they
    /// need a moment to settle.
    virtual Task<bool> arrangeForApply() = 0;

    /// Whether the side of the control that an item lies on decides if it is hidden.
    virtual bool placesByPosition() const = 0;

    /// A hide has turned out to do harm: everything must be shown again and the user told this sentence.
    Signal<std::string> mustReveal;
};

} // namespace tavrin
