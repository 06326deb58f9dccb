#pragma once

#include "concurrency/signal.h"
#include "hiding/own_status_items.h"
#include "platform/platform.h"
#include "platform/presentation.h"
#include "settings/settings.h"

#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace tavrin {

/// The popover at the control that tells a new user where the items went; it is owed until it has been closed
/// once.
class FirstRunHint {
  public:
    /// For this long after a press has closed the hint, a click belongs to that press.
    static constexpr Seconds closingPressSpan{1.0};

    FirstRunHint(const Platform& platform, Settings& settings, OwnStatusItems& items);
    FirstRunHint(const FirstRunHint&) = delete;
    FirstRunHint& operator=(const FirstRunHint&) = delete;
    ~FirstRunHint();

    /// Fires when a press on the control has closed the hint, and the configure window is to open.
    Subscription onClosedByControlPress(std::function<void()> handler) {
        return closedByControlPress_.subscribe(std::move(handler));
    }

    void oweToUser() { settings_.setBoolean(Settings::pendingFirstRunHintKey, true); }

    void showIfPending();
    bool isShowingOrPending() const;

    /// Closes the hint and owes it no longer.
    void dismiss();

    /// Whether the press that closed the hint is so recent that the present click belongs to it.
    bool wasJustClosedByControlPress() const;

  private:
    void popoverDidClose();
    void settle();
    void startGlow();
    void stopGlow();

    const Platform& platform_;
    Settings& settings_;
    OwnStatusItems& items_;
    Signal<> closedByControlPress_;
    std::unique_ptr<Popover> popover_;
    std::optional<Seconds> closedByControlPressAt_;
    TimerIdentifier glowTimer_ = TimerIdentifier::None;
    bool glowsBright_ = false;
};

} // namespace tavrin
