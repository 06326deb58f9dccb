#include "seam/program_surface.h"

#include <utility>

namespace mac_model {

void ProgramSurface::setContent(View content) {
    content_ = std::move(content);
    recorders_.follow(content_);
    layOut();
    recorders_.followFocus();
}

bool ProgramSurface::open() {
    if (!callbacks_.isOpen()) return false;
    if (!isOpen()) identifier_ = add().identifier;
    layOut();
    return true;
}

Surface& ProgramSurface::add() {
    Surface surface;
    surface.kind = nature_.kind;
    surface.owner = callbacks_.process();
    surface.title = nature_.title;
    surface.deliver = callbacks_.deliver();
    surface.onFocusMoved = [this] { callbacks_.deliver()([this] { recorders_.followFocus(); }); };
    surface.onResignedKey = [this] { callbacks_.deliver()([this] { recorders_.windowResignedKey(); }); };
    surface.onDismissed = [this] { hasGone(); };
    return stack_.add(std::move(surface));
}

void ProgramSurface::layOut() {
    auto* surface = shown();
    if (!surface) return;
    nature_.layOut(*surface, content_);
    recorders_.dress(*surface);
}

void ProgramSurface::close() {
    if (!isOpen()) return;
    stack_.remove(identifier_);
    hasGone();
}

void ProgramSurface::hasGone() {
    identifier_ = SurfaceIdentifier::None;
    if (nature_.onGone) nature_.onGone();
}

void ProgramSurface::bringToFront() {
    stack_.raise(identifier_);
    stack_.makeKey(identifier_);
}

} // namespace mac_model
