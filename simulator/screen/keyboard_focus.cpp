#include "screen/keyboard_focus.h"

#include "views/laid_out_view.h"

#include <utility>

namespace mac_model {

namespace {

tavrin::FocusPlaces placesIn(const LaidOutView& content) {
    tavrin::FocusPlaces places;
    forEachView(content, [&](const LaidOutView& laidOut, const ViewPath& path) {
        places.push_back(tavrin::focusPlaceOf(laidOut.view, path));
    });
    return places;
}

void setFocus(Surface& surface, const ViewPath& path) {
    const bool isNew = surface.focus.standsAt() != path;
    surface.focus.moveTo(path);
    if (isNew && surface.onFocusMoved) surface.onFocusMoved();
}

bool focus(Surface& surface, const std::optional<ViewPath>& path) {
    if (!path) return false;
    if (path != surface.focus.standsAt()) {
        setFocus(surface, *path);
        reveal(surface.content, *path);
    }
    return true;
}

bool isFocusInSight(const Surface& surface) {
    const auto focused = surface.focus.standsAt();
    return focused && isInSight(surface.content, *focused);
}

} // namespace

void showAnew(Surface& surface, LaidOutView content) {
    const bool isSeen = isFocusInSight(surface);
    carryScrolling(surface.content, content);
    surface.content = std::move(content);
    const auto focused = surface.focus.settleIn(placesIn(surface.content));
    if (isSeen && focused) reveal(surface.content, *focused);
}

void revealFocus(Surface& surface) {
    if (const auto focused = surface.focus.standsAt()) reveal(surface.content, *focused);
}

bool moveFocus(Surface& surface, FocusStep step) {
    return focus(surface, tavrin::focusBeside(placesIn(surface.content), surface.focus.standsAt(), step));
}

bool moveFocusInList(Surface& surface, FocusStep step) {
    return focus(surface, tavrin::focusInList(placesIn(surface.content), surface.focus.standsAt(), step));
}

bool focusOn(Surface& surface, const ViewPath& path) {
    const auto* view = viewAt(surface.content, path);
    if (!view || !tavrin::takesFocus(view->view)) return false;
    surface.focus.moveTo(path);
    return true;
}

void focusAt(Surface& surface, Point point) {
    const auto path = deepestPressedAt(surface.content, point, [](const LaidOutView& laidOut) {
        return tavrin::takesFocusWhenPressed(laidOut.view);
    });
    if (path) setFocus(surface, *path);
}

} // namespace mac_model
