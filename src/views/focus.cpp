#include "views/focus.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <ranges>
#include <tuple>
#include <utility>

namespace tavrin {

namespace {

using List = FocusPlace::List;

/// Less is nearer.
std::tuple<std::ptrdiff_t, std::ptrdiff_t> distance(const ViewPath& from, const ViewPath& to) {
    const auto [left, right] = std::ranges::mismatch(from, to);
    const auto shared = left - from.begin();
    if (left == from.end() || right == to.end()) return {-shared, 0};
    return {-shared, std::abs(static_cast<std::ptrdiff_t>(*left) - static_cast<std::ptrdiff_t>(*right))};
}

std::vector<ViewPath> pathsThat(const FocusPlaces& places, auto matches) {
    std::vector<ViewPath> paths;
    for (const auto& place : places)
        if (matches(place)) paths.push_back(place.path);
    return paths;
}

List listOf(const View& view) {
    return visitKind(
        view, [](const kinds::Scroll&) { return List::Scroll; },
        [](const OneOf<kinds::Column, kinds::Card> auto&) { return List::Column; },
        [](const kinds::Row&) { return List::None; }, [](const ControlKind auto&) { return List::None; },
        [](const DisplayKind auto&) { return List::None; }, [](const GapKind auto&) { return List::None; });
}

/// The innermost around the view; the root without one.
ViewPath pathOfList(const FocusPlaces& places, const ViewPath& path) {
    const auto* list = listAround(places, path, List::Scroll);
    if (!list) list = listAround(places, path, List::Column);
    return list ? list->path : ViewPath{};
}

void addPlaces(const View& view, ViewPath& path, FocusPlaces& places) {
    places.push_back(focusPlaceOf(view, path));
    for (std::size_t i = 0; i < view.children.size(); ++i) {
        path.push_back(i);
        addPlaces(view.children[i], path, places);
        path.pop_back();
    }
}

} // namespace

bool takesFocus(const View& view) { return view.isEnabled && (view.isFocusable || isControl(view)); }

bool takesFocusWhenPressed(const View& view) { return takesFocus(view) && !isSystemControl(view); }

FocusPlace focusPlaceOf(const View& view, ViewPath path) {
    return {.path = std::move(path),
            .takesFocus = takesFocus(view),
            .isListed = view.isFocusable && view.isEnabled,
            .list = listOf(view),
            .identity = view.dragValue,
            .control = view.identity};
}

FocusPlaces focusPlacesOf(const View& root) {
    FocusPlaces places;
    ViewPath path;
    addPlaces(root, path, places);
    return places;
}

bool isWithin(const ViewPath& path, const ViewPath& ancestor) {
    return path.size() >= ancestor.size() && std::equal(ancestor.begin(), ancestor.end(), path.begin());
}

const FocusPlace* listAround(const FocusPlaces& places, const ViewPath& path, List list) {
    const auto outwards = places | std::views::reverse;
    const auto found = std::ranges::find_if(outwards, [&](const FocusPlace& place) {
        return place.list == list && place.path.size() < path.size() && isWithin(path, place.path);
    });
    return found == outwards.end() ? nullptr : &*found;
}

std::optional<ViewPath> focusNear(const FocusPlaces& places, const ViewPath& path) {
    const auto paths = pathsThat(places, [](const FocusPlace& place) { return place.takesFocus; });
    if (std::ranges::find(paths, path) != paths.end()) return path;
    const auto nearest =
        std::ranges::min_element(paths, {}, [&](const ViewPath& other) { return distance(path, other); });
    return nearest == paths.end() ? std::nullopt : std::optional(*nearest);
}

std::optional<ViewPath> focusBeside(const FocusPlaces& places, const std::optional<ViewPath>& from,
                                    FocusStep step) {
    auto paths = pathsThat(places, [](const FocusPlace& place) { return place.takesFocus; });
    if (paths.empty()) return std::nullopt;
    if (step == FocusStep::Previous) std::ranges::reverse(paths);
    const auto found = from ? std::ranges::find(paths, *from) : paths.end();
    return found == paths.end() || std::next(found) == paths.end() ? paths.front() : *std::next(found);
}

std::optional<ViewPath> focusInList(const FocusPlaces& places, const std::optional<ViewPath>& from,
                                    FocusStep step) {
    const auto list = from ? pathOfList(places, *from) : ViewPath{};
    auto paths = pathsThat(
        places, [&](const FocusPlace& place) { return place.isListed && isWithin(place.path, list); });
    if (paths.empty()) return std::nullopt;
    if (step == FocusStep::Previous) std::ranges::reverse(paths);
    const auto next = std::ranges::find_if(paths, [&](const ViewPath& path) {
        return !from || (step == FocusStep::Next ? path > *from : path < *from);
    });
    return next == paths.end() ? from : *next;
}

} // namespace tavrin
