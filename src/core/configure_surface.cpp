#include "core/configure_surface.h"

#include "platform/application.h"

#include <utility>

namespace tavrin {

ConfigureSurface::ConfigureSurface(const Platform& platform, std::function<void(Kind)> onClose)
    : platform_(platform)
    , onClose_(std::move(onClose)) {}

bool ConfigureSurface::showPopover(StatusItem& control, Rect glyph, PopoverBehavior behavior, View content) {
    popover_ = platform_.presentation.makePopover(behavior, [this] { didClose(Kind::Popover); });
    popover_->setContent(std::move(content));
    // The transient popover of an inactive application closes at the next event, whatever that is.
    platform_.application.activate();
    if (popover_->show(control, glyph) && popover_->isShown()) return true;
    popover_.reset();
    return false;
}

void ConfigureSurface::showWindow(View content) {
    window_ = platform_.presentation.makeWindow("Configure Items", [this] { didClose(Kind::Window); });
    window_->placeBelowMenuBar();
    window_->setContent(std::move(content));
    bringToFront();
}

void ConfigureSurface::setContent(View content) {
    if (popover_) return popover_->setContent(std::move(content));
    if (window_) window_->setContent(std::move(content));
}

void ConfigureSurface::setBehavior(PopoverBehavior behavior) {
    if (popover_) popover_->setBehavior(behavior);
}

void ConfigureSurface::bringToFront() {
    platform_.application.activate();
    if (window_) window_->makeKeyAndOrderFront();
}

void ConfigureSurface::didClose(Kind kind) {
    close();
    onClose_(kind);
}

void ConfigureSurface::close() {
    popover_.reset();
    window_.reset();
}

} // namespace tavrin
