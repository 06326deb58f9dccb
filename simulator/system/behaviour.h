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

    /// Whether one agent draws the status items of all processes, as since macOS 27.
    bool hasHostedBar() const { return version.major >= 27; }
};

} // namespace mac_model
