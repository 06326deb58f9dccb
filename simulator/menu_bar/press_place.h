#pragma once

#include "menu_bar/status_item_record.h"
#include "vocabulary/vocabulary.h"

#include <vector>

namespace mac_model {

/// What an area at the item on the primary screen is on the screen where the person pressed the item last.
Rect areaAtPress(const StatusItemRecord&, Rect area, const std::vector<ScreenSpec>&);

} // namespace mac_model
