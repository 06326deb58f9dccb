#include "views/kept_focus.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <ranges>
#include <utility>

namespace tavrin {

namespace {

const FocusPlace* rowAround(const FocusPlaces& places, const ViewPath& path) {
    const auto outwards = places | std::views::reverse;
    const auto found = std::ranges::find_if(
        outwards, [&](const FocusPlace& place) { return place.identity && isWithin(path, place.path); });
    return found == outwards.end() ? nullptr : &*found;
}

ViewPath listOf(const FocusPlaces& places, ViewPath row) {
    const auto* scroll = listAround(places, row, FocusPlace::List::Scroll);
    if (!row.empty()) row.pop_back();
    if (scroll) row.erase(row.begin(), row.begin() + static_cast<std::ptrdiff_t>(scroll->path.size()));
    return row;
}

} // namespace

void KeptFocus::seenAt(std::optional<ViewPath> path) {
    if (path == standsAt()) return;
    clear();
    if (path) moveTo(*std::move(path));
}

std::optional<ViewPath> KeptFocus::settleIn(FocusPlaces places) {
    places_ = std::move(places);
    if (!belongsAt_) return std::nullopt;
    auto place = found(*belongsAt_);
    const bool isLent = !place;
    if (!place && standsAt_ && standsAt_->row) place = found(*standsAt_);
    if (!place) place = focusNear(places_, pathOf(*belongsAt_));
    standsAt_ = place ? std::optional(spotAt(*place)) : std::nullopt;
    const bool isForGood = belongsAt_->row && standsAt_ && standsAt_->row;
    if (!isLent || isForGood) belongsAt_ = standsAt_;
    return place;
}

std::optional<ViewPath> KeptFocus::standsAt() const {
    return standsAt_ ? std::optional(standsAt_->path) : std::nullopt;
}

KeptFocus::Spot KeptFocus::spotAt(ViewPath path) const {
    const auto* row = rowAround(places_, path);
    if (!row) {
        const auto place = std::ranges::find(places_, path, &FocusPlace::path);
        auto control = place == places_.end() ? std::string{} : place->control;
        return {.path = std::move(path), .control = std::move(control)};
    }
    const auto depth = static_cast<std::ptrdiff_t>(row->path.size());
    return {.path = path,
            .row = Row{*row->identity, listOf(places_, row->path), {path.begin() + depth, path.end()}}};
}

const FocusPlace* KeptFocus::controlOf(const Spot& spot) const {
    if (spot.control.empty()) return nullptr;
    const auto again = std::ranges::find(places_, spot.control, &FocusPlace::control);
    return again == places_.end() ? nullptr : &*again;
}

/// Where it stands now, or where it stood.
ViewPath KeptFocus::pathOf(const Spot& spot) const {
    const auto* control = controlOf(spot);
    return control ? control->path : spot.path;
}

/// The very view, where it takes the focus.
std::optional<ViewPath> KeptFocus::found(const Spot& spot) const {
    if (spot.row) return found(*spot.row);
    const auto path = pathOf(spot);
    const auto nearest = focusNear(places_, path);
    if (nearest != path || rowAround(places_, path)) return std::nullopt;
    return spotAt(path).control == spot.control ? nearest : std::nullopt;
}

/// The row's inside gives way to the row itself.
std::optional<ViewPath> KeptFocus::found(const Row& row) const {
    const auto again = std::ranges::find_if(places_, [&](const FocusPlace& place) {
        return place.identity == row.identity && listOf(places_, place.path) == row.list;
    });
    if (again == places_.end()) return std::nullopt;
    auto path = again->path;
    path.insert(path.end(), row.inside.begin(), row.inside.end());
    const auto nearest = focusNear(places_, path);
    return nearest && isWithin(*nearest, again->path) ? nearest : std::nullopt;
}

} // namespace tavrin
