#pragma once

#include "screen/surface.h"
#include "views/view_queries.h"

#include <nlohmann/json.hpp>
#include <optional>
#include <vector>

namespace mac_model {

/// A surface as "look" describes it, with everything in it as a tree. Members without content are left out.
nlohmann::json treeOf(const Surface&, const std::string& owner, bool isKey);

/// Where the view is whose node `treeOf` has at these positions among children, the surface's own first; none
/// where there is no such view.
std::optional<ViewPath> viewPathOf(const Surface&, const std::vector<std::size_t>& positions);
bool isCloseButton(const Surface&, const std::vector<std::size_t>& positions);

/// The view's name for a person or a screen reader: its text, or else its label.
std::string textOf(const LaidOutView&);

inline const std::string closeButtonText = "close button";

} // namespace mac_model
