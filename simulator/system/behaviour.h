#pragma once

#include "desktop/desktop_file.h"
#include "system/faults.h"

namespace mac_model {

/// How this Mac behaves where Macs differ. After a change that affects the menu bar, call
/// `Arrangement::refresh`.
struct Behaviour {
    MacOSVersion version;
    Uncertainties uncertainties;
    Faults faults;
    bool reducesMotion = false; // the person's setting
};

} // namespace mac_model
