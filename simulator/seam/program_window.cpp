#include "seam/program_window.h"

#include <utility>

namespace mac_model {

ProgramWindow::ProgramWindow(ProgramPresentation& presentation, std::string title, ProgramCallbacks callbacks)
    : presentation_(presentation)
    , surface_(presentation.stack_, std::move(callbacks),
               {.kind = SurfaceKind::Window,
                .title = std::move(title),
                .layOut = [this](Surface& surface, const View& content) { layOut(surface, content); },
                .onGone = [this] { hasClosed(); }}) {}

void ProgramWindow::makeKeyAndOrderFront() {
    if (surface_.isOpen() || surface_.open()) surface_.bringToFront();
}

void ProgramWindow::layOut(Surface& surface, const View& content) const {
    if (surface.hasTitleBar)
        replaceContent(surface, content);
    else
        placeTitledWindow(surface, content, presentation_.mac_.screens.screens(), place_);
}

void ProgramWindow::hasClosed() {
    surface_.callbacks().postOnClose();
    if (surface_.callbacks().isOpen() && !presentation_.hasVisibleWindows())
        presentation_.host_.lastWindowClosed();
}

} // namespace mac_model
