#pragma once

#include "screen/surface.h"

#include <nlohmann/json.hpp>

namespace mac_model {

/// A surface as "look" describes it, with everything in it as a tree. Members without content are left out.
nlohmann::json treeOf(const Surface&, const std::string& owner, bool isKey);

/// The view's name for a person or a screen reader: its text, or else its label.
std::string textOf(const LaidOutView&);

inline const std::string closeButtonText = "close button";

} // namespace mac_model
