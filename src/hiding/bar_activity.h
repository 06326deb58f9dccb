#pragma once

#include "concurrency/signal.h"

namespace tavrin {

/// The state of the menu bar at this moment. Each flag has one writer; everyone else only reads it.
struct BarActivity {
    Published<bool> isAwaitingInitialState{true};   // written by StartUp
    Published<bool> isCollapsed{false};             // written by HidingController
    Published<bool> isCollapsePending{false};       // written by HidingController: a request is under way
    Published<bool> isConfigureOpen{false};         // written by ConfigurePresentation: also on its way up
    Published<bool> isApplyingConfiguration{false}; // written by ConfigurationApplier
    Published<bool> isTrayVisible{false};           // nobody writes it, as there is no tray
    Published<bool> isLiftedForClock{false};        // written by ClockLift
};

} // namespace tavrin
