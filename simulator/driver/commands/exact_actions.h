#pragma once

#include "driver/command.h"

namespace mac_model {

// Accessibility actions on one thing among all, which is named by its place in what "look" tells.

Outcome performInSurface(DrivenMac, Arguments&);
Outcome performOnItem(DrivenMac, Arguments&);
Outcome performOnTitle(DrivenMac, Arguments&);

} // namespace mac_model
