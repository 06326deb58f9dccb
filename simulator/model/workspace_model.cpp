#include "model/workspace_model.h"

namespace mac_model {

std::optional<std::string> WorkspaceModel::bundleIdentifierAt(std::string_view path) const {
    while (path.size() > 1 && path.ends_with('/')) path.remove_suffix(1);
    const auto found = bundles_.find(path);
    return found == bundles_.end() ? std::nullopt : std::optional(found->second);
}

} // namespace mac_model
