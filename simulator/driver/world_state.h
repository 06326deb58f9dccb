#pragma once

#include "desktop/desktop_file.h"

namespace mac_model {

/// Settings of a driver that nothing on this Mac acts on yet.
struct WorldState {
    VisibilityService visibilityService = VisibilityService::Absent;
};

} // namespace mac_model
