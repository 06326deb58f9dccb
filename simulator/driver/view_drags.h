#pragma once

#include "driver/command.h"

namespace mac_model {

/// The command "drag" for rows and sections: what is dragged and what it is dropped on are named by their
/// text.
Outcome dragView(DrivenMac, Arguments&);

} // namespace mac_model
