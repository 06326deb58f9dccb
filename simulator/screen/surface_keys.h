#pragma once

#include "desktop/desktop_file.h"
#include "screen/surface.h"

#include <string_view>
#include <vector>

namespace mac_model {

/// Does what a press of the control does, if it is enabled.
void perform(const Surface&, const LaidOutView& control);

/// A key for the surface that has the keyboard: first for the focused view and those around it, then to move
/// the focus, then for the default button. False when nothing takes it.
bool pressKeyOn(Surface&, std::string_view key, const std::vector<Modifier>&);

} // namespace mac_model
