#pragma once

#include "driver/command.h"

namespace mac_model {

/// The command "drag" for rows and sections: the source and the target are named by their text.
Outcome dragView(DrivenMac, Arguments&);

} // namespace mac_model
