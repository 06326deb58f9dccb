#include "screen/keyboard_focus.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <tuple>
#include <utility>
#include <vector>

namespace mac_model {

namespace {

using tavrin::ViewKind;

std::vector<ViewPath> pathsOf(const Surface& surface,
                              const std::function<bool(const tavrin::View&)>& matches) {
    std::vector<ViewPath> paths;
    forEachView(surface.content, [&](const LaidOutView& laidOut, const ViewPath& path) {
        if (matches(laidOut.view)) paths.push_back(path);
    });
    return paths;
}

bool isListed(const tavrin::View& view) { return view.isFocusable && view.isEnabled; }

/// Less is nearer: first those with more ancestors in common, then those fewer siblings away.
std::tuple<std::ptrdiff_t, std::ptrdiff_t> distance(const ViewPath& from, const ViewPath& to) {
    const auto [left, right] = std::ranges::mismatch(from, to);
    const auto shared = left - from.begin();
    if (left == from.end() || right == to.end()) return {-shared, 0};
    return {-shared, std::abs(static_cast<std::ptrdiff_t>(*left) - static_cast<std::ptrdiff_t>(*right))};
}

bool isWithin(const ViewPath& path, const ViewPath& ancestor) {
    return path.size() >= ancestor.size() && std::equal(ancestor.begin(), ancestor.end(), path.begin());
}

/// The place of the Scroll around the view, or else of the column that it stands in.
ViewPath listAround(const Surface& surface, const ViewPath& path) {
    const auto innermost = [&](auto matches) -> std::optional<ViewPath> {
        for (auto length = path.size(); length-- > 0;) {
            ViewPath ancestor(path.begin(), path.begin() + static_cast<std::ptrdiff_t>(length));
            if (matches(viewAt(surface.content, ancestor)->view.kind)) return ancestor;
        }
        return std::nullopt;
    };
    if (const auto scroll = innermost([](ViewKind kind) { return kind == ViewKind::Scroll; })) return *scroll;
    return innermost([](ViewKind kind) { return kind == ViewKind::Column || kind == ViewKind::Card; })
        .value_or(ViewPath{});
}

void setFocus(Surface& surface, const ViewPath& path) {
    const bool isNew = surface.focus != path;
    surface.focus = path;
    if (isNew && surface.onFocusMoved) surface.onFocusMoved();
}

void focus(Surface& surface, const ViewPath& path) {
    setFocus(surface, path);
    reveal(surface.content, path);
}

} // namespace

bool takesFocus(const tavrin::View& view) { return view.isEnabled && (view.isFocusable || isControl(view)); }

std::optional<ViewPath> focusedPath(const Surface& surface) {
    if (!surface.focus) return std::nullopt;
    const auto* there = viewAt(surface.content, *surface.focus);
    if (there && takesFocus(there->view)) return surface.focus;
    const auto paths = pathsOf(surface, takesFocus);
    const auto nearest = std::ranges::min_element(
        paths, {}, [&](const ViewPath& path) { return distance(*surface.focus, path); });
    return nearest == paths.end() ? std::nullopt : std::optional(*nearest);
}

bool moveFocus(Surface& surface, FocusStep step) {
    const auto paths = pathsOf(surface, takesFocus);
    if (paths.empty()) return false;
    const auto focused = focusedPath(surface);
    const auto last = paths.size() - 1;
    std::size_t to = step == FocusStep::Next ? 0 : last;
    if (focused) {
        const auto from = static_cast<std::size_t>(std::ranges::find(paths, *focused) - paths.begin());
        to = step == FocusStep::Next ? (from == last ? 0 : from + 1) : (from == 0 ? last : from - 1);
    }
    focus(surface, paths[to]);
    return true;
}

bool moveFocusInList(Surface& surface, FocusStep step) {
    const auto from = focusedPath(surface);
    auto paths = pathsOf(surface, isListed);
    if (from)
        std::erase_if(paths, [list = listAround(surface, *from)](const ViewPath& path) {
            return !isWithin(path, list);
        });
    if (paths.empty()) return false;
    if (step == FocusStep::Previous) std::ranges::reverse(paths);
    const auto next = std::ranges::find_if(paths, [&](const ViewPath& path) {
        return !from || (step == FocusStep::Next ? path > *from : path < *from);
    });
    if (next != paths.end()) focus(surface, *next);
    return true;
}

void focusAt(Surface& surface, tavrin::Point point) {
    const auto path = deepestPressedAt(surface.content, point,
                                       [](const LaidOutView& laidOut) { return isListed(laidOut.view); });
    if (path) setFocus(surface, *path);
}

} // namespace mac_model
