#pragma once

#include "discovery/menu_bar_item.h"
#include "views/view.h"

#include <functional>

namespace tavrin {

/// The effect on the row's item of moving it to the other section.
enum class RowMove { Hide, Show };

/// One item of the configure window. An item that macOS keeps in its place can't be moved.
View configureRow(const MenuBarItem& item, RowMove kind, std::function<void()> move);

} // namespace tavrin
