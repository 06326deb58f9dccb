#pragma once

#include "views/view.h"

#include <functional>

namespace tavrin {

class MenuBarManager;

/// Gives a function that makes the configure window's content for the present state of a manager, which is
/// the same one at each call. The content may act on the manager for as long as it is shown.
std::function<View(MenuBarManager&)> configureContent();

} // namespace tavrin
