#pragma once

#include "concurrency/job.h"
#include "concurrency/signal.h"
#include "hiding/bar_activity.h"
#include "hiding/failure_message.h"
#include "hiding/hiding_mechanism.h"
#include "settings/settings.h"

#include <functional>
#include <string>
#include <utility>

namespace tavrin {

enum class Persist { No, Yes };
enum class OnFailure { StayQuiet, ShowConfiguration };

/// How a collapse has ended.
enum class CollapseOutcome {
    hidden,
    failed,     // the bar is expanded, and the failure message says why
    superseded, // a later collapse or expand has taken its place, or nobody waits for it any longer
};

/// Hides the configured items and reveals them again, and decides which of several requests counts.
class HidingController {
  public:
    HidingController(Scheduler& scheduler, Settings& settings, BarActivity& activity,
                     HidingMechanism& mechanism, FailureMessage& failure);
    HidingController(const HidingController&) = delete;
    HidingController& operator=(const HidingController&) = delete;

    void toggleCollapse();

    /// Hides, unless the mechanism refuses. A hide that isn't confirmed is undone; when that is because the
    /// awaiting job was cancelled, nothing is told or stored.
    Task<CollapseOutcome> collapse(Persist persist);
    void expand(Persist persist);

    /// Prepares, and then collapses, unless a newer request or `cancelRequests` came in between.
    void requestCollapse(Persist persist, OnFailure onFailure);

    void cancelRequests();

    /// Fires when a request begins; anything else that rearranges the bar ends then.
    Subscription onRequest(std::function<void()> handler) { return requested_.subscribe(std::move(handler)); }

    /// Fires when the user has to see the failure message.
    Subscription onFailed(std::function<void()> handler) { return failed_.subscribe(std::move(handler)); }

    /// Adapts the hiding to the present screens.
    void adaptToScreens();

    /// Puts every hidden item back on the screen without touching the stored choice, and stops all work. Then
    /// waits until nothing can be hidden any longer.
    Task<> restoreForTermination();

  private:
    Task<> performRequest(Persist persist, OnFailure onFailure);
    CollapseOutcome fail(std::string sentence);
    void remember(Persist persist, bool isCollapsed);
    void restoreFullMenuBar(const std::string& sentence);

    Scheduler& scheduler_;
    Settings& settings_;
    BarActivity& activity_;
    HidingMechanism& mechanism_;
    FailureMessage& failure_;
    int generation_ = 0; // of the state: counts hides and reveals
    Signal<> requested_;
    Signal<> failed_;
    Subscription mechanismObservation_;
    Job<> requestTask_;
};

} // namespace tavrin
