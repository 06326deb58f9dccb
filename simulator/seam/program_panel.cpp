#include "seam/program_panel.h"

#include "screen/placement.h"
#include "views/view_layout.h"

#include <utility>

namespace mac_model {

void ProgramPanel::setContent(tavrin::View content) {
    content_ = std::move(content);
    if (auto* surface = presentation_.stack_.find(surface_)) layOut(*surface);
}

void ProgramPanel::show(tavrin::Rect anchor) {
    if (!callbacks_.isOpen()) return;
    anchor_ = anchor;
    auto* surface = presentation_.stack_.find(surface_);
    if (!surface) {
        Surface panel;
        panel.kind = SurfaceKind::Panel;
        panel.owner = callbacks_.process();
        panel.deliver = callbacks_.deliver();
        panel.onDismissed = [this] { surface_ = SurfaceIdentifier::None; };
        surface = &presentation_.stack_.add(std::move(panel));
        surface_ = surface->identifier;
    }
    layOut(*surface);
}

void ProgramPanel::layOut(Surface& surface) const {
    const auto screen = screenFor(presentation_.mac_.screens.screens(), anchor_.middle());
    surface.frame = popoverFrame(measured(content_, tavrin::popoverWidthMax), anchor_, screen);
    auto content = laidOut(content_, surface.frame);
    carryScrolling(surface.content, content);
    surface.content = std::move(content);
}

void ProgramPanel::close() { presentation_.stack_.remove(std::exchange(surface_, SurfaceIdentifier::None)); }

} // namespace mac_model
