#include "seam/program_window.h"

#include "screen/titled_window.h"

#include <utility>

namespace mac_model {

void ProgramWindow::setContent(tavrin::View content) {
    content_ = std::move(content);
    recorders_.follow(content_);
    if (auto* surface = presentation_.stack_.find(surface_)) {
        replaceContent(*surface, content_);
        recorders_.dress(*surface);
        recorders_.followFocus();
    }
}

void ProgramWindow::makeKeyAndOrderFront() {
    if (!callbacks_.isOpen()) return;
    if (isVisible())
        presentation_.stack_.raise(surface_);
    else
        open();
    presentation_.stack_.makeKey(surface_);
}

void ProgramWindow::open() {
    Surface window;
    window.kind = SurfaceKind::Window;
    window.owner = callbacks_.process();
    window.title = title_;
    window.deliver = callbacks_.deliver();
    window.onDismissed = [this] { hasClosed(); };
    placeTitledWindow(window, content_, presentation_.mac_.screens.screens());
    window.onFocusMoved = [this] { callbacks_.deliver()([this] { recorders_.followFocus(); }); };
    window.onResignedKey = [this] { callbacks_.deliver()([this] { recorders_.windowResignedKey(); }); };
    auto& surface = presentation_.stack_.add(std::move(window));
    surface_ = surface.identifier;
    recorders_.dress(surface);
}

void ProgramWindow::close() {
    if (!isVisible()) return;
    presentation_.stack_.remove(surface_);
    hasClosed();
}

void ProgramWindow::hasClosed() {
    surface_ = SurfaceIdentifier::None;
    callbacks_.postOnClose();
    if (callbacks_.isOpen() && !presentation_.hasVisibleWindows()) presentation_.host_.lastWindowClosed();
}

} // namespace mac_model
