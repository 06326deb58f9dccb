#pragma once

#include "views/view.h"

#include <functional>

namespace tavrin {

class MenuBarManager;

/// Makes the configure window's content for the present state of a manager, the same one each time. The
/// content may act on the manager for as long as it is shown.
std::function<View(MenuBarManager&)> configureContent();

} // namespace tavrin
