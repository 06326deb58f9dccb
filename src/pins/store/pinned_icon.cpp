#include "pins/store/pinned_icon.h"

namespace tavrin::PinnedIcon {

std::optional<std::vector<std::byte>> pngData(const Workspace& workspace,
                                              std::optional<ProcessIdentifier> process,
                                              std::string_view bundleIdentifier) {
    auto icon = process ? workspace.iconPngOfProcess(*process) : std::nullopt;
    return icon ? icon : workspace.iconPngOfBundle(bundleIdentifier);
}

} // namespace tavrin::PinnedIcon
