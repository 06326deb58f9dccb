#include "screen/titled_window.h"

#include "screen/keyboard_focus.h"
#include "screen/placement.h"
#include "views/view_layout.h"

#include <cmath>

namespace mac_model {

namespace {

Size sizeFor(const View& content) {
    auto size = measured(content, tavrin::windowWidthMax);
    size.height += Surface::titleBarHeight;
    return size;
}

} // namespace

void placeTitledWindow(Surface& surface, const View& content, const std::vector<ScreenSpec>& screens,
                       WindowPlace place) {
    const auto placed = place == WindowPlace::Usual ? windowFrame : windowFrameBelowMenuBar;
    surface.hasTitleBar = true;
    surface.frame = placed(sizeFor(content), screenFor(screens, {}));
    showAnew(surface, laidOut(content, surface.contentFrame()));
}

void replaceContent(Surface& surface, const View& content) {
    const auto size = sizeFor(content);
    const double x = std::round(surface.frame.midX() - size.width / 2);
    surface.frame = {x, surface.frame.y, size.width, size.height};
    showAnew(surface, laidOut(content, surface.contentFrame()));
}

} // namespace mac_model
