#pragma once

#include "hiding/menu_bar_runtime_mode.h"
#include "hiding/skerrow_policy.h"

#include <string>

namespace tavrin {

/// The sentences of the configure window that depend on how Tavrin hides.
struct ConfigureTexts {
    std::string reasonForAccess;
    std::string explanation;
    std::string placement; // what applying would do; empty when nothing
};

ConfigureTexts configureTexts(MenuBarRuntimeMode mode, const SkerrowPolicy& policy);

/// "2 items will move • 1 overflow item will show only with all items"; empty when neither.
std::string placementSummary(const SkerrowPolicy& policy);

} // namespace tavrin
