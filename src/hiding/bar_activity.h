#pragma once

#include "concurrency/signal.h"

namespace tavrin {

/// The state of the menu bar at this moment. Each flag has one writer; everyone else has a const reference.
struct BarActivity {
    Published<bool> isCollapsed{false};             // written by HidingController
    Published<bool> isApplyingConfiguration{false}; // written by ConfigurationApplier
};

} // namespace tavrin
