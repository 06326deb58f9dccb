#include "menu_bar/press_place.h"

#include "menu_bar/status_layout.h"

namespace mac_model {

Rect areaAtPress(const StatusItemRecord& record, Rect area, const std::vector<ScreenSpec>& screens) {
    if (!record.pressedAt || !record.frame) return area;
    for (const auto& screen : screens) {
        if (!screen.frame.contains(*record.pressedAt)) continue;
        auto frame = frameOnScreen(*record.frame, screens.front(), screen);
        // The agent of macOS 27 may draw it elsewhere there.
        const double x = record.pressedAt->x;
        if (x < frame.x || x >= frame.maxX()) frame.x = x - frame.width / 2;
        return {area.x + frame.x - record.frame->x, area.y + frame.y - record.frame->y, area.width,
                area.height};
    }
    return area;
}

} // namespace mac_model
