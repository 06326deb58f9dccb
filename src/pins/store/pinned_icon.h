#pragma once

#include "platform/workspace.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace tavrin::PinnedIcon {

/// The icon that a pin of this application keeps: the running application's, else that of the application
/// installed under the bundle identifier; none without either. A PNG of 32 × 32 pixels for 16 × 16 points.
std::optional<std::vector<std::byte>> pngData(const Workspace& workspace,
                                              std::optional<ProcessIdentifier> process,
                                              std::string_view bundleIdentifier);

} // namespace tavrin::PinnedIcon
