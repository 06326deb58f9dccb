#include "seam/program_panel.h"

#include "screen/keyboard_focus.h"
#include "screen/placement.h"
#include "views/view_layout.h"

#include <utility>

namespace mac_model {

ProgramPanel::ProgramPanel(ProgramPresentation& presentation, ProgramCallbacks callbacks)
    : presentation_(presentation)
    , surface_(presentation.stack_, std::move(callbacks),
               {.kind = SurfaceKind::Panel,
                .layOut = [this](Surface& surface, const View& content) { layOut(surface, content); }}) {}

void ProgramPanel::show(Rect anchor) {
    anchor_ = anchor;
    surface_.open();
}

void ProgramPanel::layOut(Surface& surface, const View& content) const {
    const auto screen = screenFor(presentation_.mac_.screens.screens(), anchor_.middle());
    surface.frame = popoverFrame(measured(content, tavrin::popoverWidthMax), anchor_, screen);
    showAnew(surface, laidOut(content, surface.frame));
}

} // namespace mac_model
