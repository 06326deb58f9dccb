#pragma once

#include "driver/modelled_mac.h"
#include "serve/live_mac.h"

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace mac_model {

struct ServeOptions {
    int port = 0; // 0: any free one
    /// The first is shown at first.
    std::vector<DesktopChoice> desktops;
    LiveMac::Start start;
};

/// The desktop files that are built in.
std::vector<DesktopChoice> builtInChoices();

/// Shows a Mac on a loopback page until the process is told to end (SIGINT, SIGTERM). Says where on `out`;
/// the result is the exit status, with a sentence on `errors` when it isn't 0. Call it before there are other
/// threads: it takes those signals from all that come after.
int serve(ServeOptions, std::ostream& out, std::ostream& errors);

} // namespace mac_model
