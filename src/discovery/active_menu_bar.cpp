#include "discovery/active_menu_bar.h"

#include <algorithm>

namespace tavrin {

namespace {

/// Also of a menu bar that is hidden, which stands above the edge of its screen.
const Screen* screenOfBarWith(const Rect& item, std::span<const Screen> screens) {
    const auto found = std::ranges::find_if(screens, [&](const Screen& screen) {
        const double top = screen.frame.minY();
        return item.midX() >= screen.frame.minX() && item.midX() < screen.frame.maxX() &&
               item.midY() >= top - screen.menuBarHeight && item.midY() < top + screen.menuBarHeight;
    });
    return found == screens.end() ? nullptr : &*found;
}

} // namespace

ActiveMenuBar::ActiveMenuBar(std::span<const Rect> others, const Rect& control,
                             std::span<const Screen> screens) {
    const auto rightmost = std::ranges::max_element(others, {}, &Rect::maxX);
    const auto* from = screenOfBarWith(control, screens);
    const auto* to = rightmost == others.end() ? nullptr : screenOfBarWith(*rightmost, screens);
    if (!from || !to || from == to) return;
    shift_ = to->frame.maxX() - from->frame.maxX();
    screen_ = *to;
}

Rect ActiveMenuBar::placeOf(const Rect& own) const {
    if (!screen_) return own;
    return {own.x + shift_, screen_->frame.y, own.width, screen_->menuBarHeight};
}

} // namespace tavrin
