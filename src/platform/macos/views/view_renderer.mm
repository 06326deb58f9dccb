#include "platform/macos/views/view_renderer.h"

#include "platform/macos/support/main_thread.h"
#include "platform/macos/views/view_surface.h"
#include "views/view_layout.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace tavrin::macos {

ViewRenderer::ViewRenderer(Deliver deliver)
    : surface_([[TavrinSurfaceView alloc] initWithDelivery:std::move(deliver)]) {
    setContent(View{});
}

void ViewRenderer::letGo() { [surface_ letRecordersGo]; }

NSView* ViewRenderer::surface() const { return surface_; }

void ViewRenderer::setContent(View content) {
    assertMainThread();
    [surface_ showView:std::make_shared<const View>(std::move(content))];
}

NSSize ViewRenderer::layOut(double widthMax, double heightMax) {
    if (surface_.isTakingUp) return surface_.frame.size; // the caller that brought the tree lays it out
    const Size wanted = measured([surface_.rootNode shownView], widthMax, sizes_);
    const NSSize size =
        NSMakeSize(std::ceil(wanted.width), std::ceil(std::min(wanted.height, std::max(0.0, heightMax))));
    [surface_.rootNode placeAt:NSMakeRect(0, 0, size.width, size.height) sizes:sizes_];
    [surface_ keepFocusInSight];
    return size;
}

void ViewRenderer::takeKeyboard() { [surface_ takeKeyboard]; }

} // namespace tavrin::macos
