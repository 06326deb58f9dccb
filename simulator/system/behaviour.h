#pragma once

#include "desktop/desktop_file.h"
#include "system/faults.h"

namespace mac_model {

/// How this Mac behaves where Macs differ. Whoever changes what bears on the menu bar calls
/// `Arrangement::refresh` afterwards.
struct Behaviour {
    MacOSVersion version;
    Uncertainties uncertainties;
    Faults faults;
};

} // namespace mac_model
