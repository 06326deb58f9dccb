#pragma once

#include "core/menu_bar_manager.h"
#include "platform/view.h"

namespace tavrin {

/// The configure window: which items are shown and which are hidden. The actions in it refer to `manager`.
View collapsedMenuView(MenuBarManager& manager);

} // namespace tavrin
