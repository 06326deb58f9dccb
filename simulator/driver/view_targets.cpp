#include "desktop/strict_json.h"
#include "driver/surface_tree.h"
#include "driver/targets.h"
#include "input/view_drag.h"
#include "screen/surface_keys.h"
#include "vocabulary/vocabulary.h"

#include <algorithm>
#include <array>
#include <utility>

// A person's names for rows, sections and other views that are no controls themselves.

namespace mac_model {

namespace {

namespace kinds = tavrin::kinds;

constexpr double sightMin = 8;     // points of a target that are enough to aim at
constexpr double edgeDistance = 4; // from the edge of a Scroll, where a drag makes it move

const LaidOutView* scrollAround(const LaidOutView& root, const ViewPath& path) {
    const LaidOutView* scroll = nullptr;
    const LaidOutView* view = &root;
    for (const auto index : path) {
        if (tavrin::is<kinds::Scroll>(view->view)) scroll = view;
        view = &view->children[index];
    }
    return scroll;
}

/// Whether the text belongs to a view that takes drops, and not to something in it that can be dragged.
bool namesDropTarget(const LaidOutView& root, ViewPath path) {
    for (;; path.pop_back()) {
        const auto& view = viewAt(root, path)->view;
        if (view.onDrop) return true;
        if (view.dragValue || path.empty()) return false;
    }
}

/// Its own text, label and tool tip, or else the first text in it.
void addNames(Target& target, const LaidOutView& laidOut) {
    const auto text = shownText(laidOut);
    addName(target, text);
    addName(target, laidOut.view.accessibilityLabel);
    addName(target, laidOut.view.help);
    if (!text.empty() || !laidOut.view.accessibilityLabel.empty()) return;
    std::string first;
    forEachView(laidOut, [&](const LaidOutView& inner, const ViewPath&) {
        if (first.empty()) first = shownText(inner);
    });
    addName(target, first);
}

std::string actionsOf(const View& view) {
    std::string names = isControl(view) ? "\"AXPress\"" : "";
    for (const auto& action : view.contextMenu) names += (names.empty() ? "" : ", ") + inQuotes(action.name);
    return names.empty() ? "none" : names;
}

} // namespace

bool TargetFinder::isCovered(const Surface& surface, Rect frame) const {
    const auto* front = content_.stack.at(frame.middle());
    return front && front != &surface;
}

/// A view that is scrolled away can be scrolled into sight.
bool TargetFinder::isReachable(const Surface& surface, const LaidOutView& laidOut,
                               const ViewPath& path) const {
    return !isInSight(surface.content, path) || !isCovered(surface, laidOut.frame);
}

std::vector<Target> TargetFinder::views(const std::function<bool(const View&)>& matches) const {
    std::vector<Target> targets;
    for (const auto& surface : content_.stack.backToFront()) {
        if (surface->kind == SurfaceKind::Menu || surface->kind == SurfaceKind::Drag) continue;
        forEachView(surface->content, [&](const LaidOutView& laidOut, const ViewPath& path) {
            if (!matches(laidOut.view) || !isReachable(*surface, laidOut, path)) return;
            Target target{.kind = Target::Kind::View,
                          .frame = laidOut.frame,
                          .isEnabled = laidOut.view.isEnabled,
                          .surface = surface->identifier,
                          .path = path};
            addNames(target, laidOut);
            targets.push_back(std::move(target));
        });
    }
    return targets;
}

std::expected<Target, std::string> TargetFinder::withContextMenu(std::string_view name) const {
    return oneOf(views([](const View& view) { return !view.contextMenu.empty(); }), name);
}

std::expected<Target, std::string> TargetFinder::draggable(std::string_view name) const {
    return oneOf(views([](const View& view) { return view.dragValue.has_value(); }), name);
}

std::expected<Target, std::string> TargetFinder::withAction(std::string_view name,
                                                            std::string_view action) const {
    const auto all = views([](const View& view) { return isControl(view) || !view.contextMenu.empty(); });
    const auto named = matching(all, name);
    auto able = named;
    std::erase_if(able, [&](const Target& target) { return !actionOf(target, action); });
    if (!able.empty() || named.empty()) return oneOf(named.empty() ? all : able, name);
    const auto& surface = *content_.stack.find(named.front().surface);
    return std::unexpected(inQuotes(name) + " has no action " + inQuotes(action) + " now; its actions are " +
                           actionsOf(viewAt(surface.content, named.front().path)->view));
}

Work TargetFinder::actionOf(const Target& target, std::string_view action) const {
    const auto* surface = content_.stack.find(target.surface);
    const auto* laidOut = surface ? viewAt(surface->content, target.path) : nullptr;
    if (!laidOut || !laidOut->view.isEnabled) return nullptr;
    if (action == "AXPress") return laidOut->view.onPress;
    const auto& menu = laidOut->view.contextMenu;
    const auto found = std::ranges::find(menu, action, &tavrin::ViewAction::name);
    return found == menu.end() ? nullptr : found->perform;
}

std::vector<Target> TargetFinder::dropTargets() const {
    const auto canName = [](const View& view) { return view.onDrop || tavrin::is<kinds::Text>(view); };
    auto targets = views(canName);
    std::erase_if(targets, [&](const Target& target) {
        return !namesDropTarget(content_.stack.find(target.surface)->content, target.path);
    });
    return targets;
}

std::expected<Target, std::string> TargetFinder::dropTarget(std::string_view name) const {
    auto targets = dropTargets();
    // A section is called by its first text unless it has a label; that text itself is the better aim.
    std::erase_if(targets, [&](const Target& target) {
        const auto& laidOut = *viewAt(content_.stack.find(target.surface)->content, target.path);
        return laidOut.view.onDrop && textOf(laidOut).empty();
    });
    return oneOf(targets, name);
}

std::expected<Point, std::string> TargetFinder::placeToDrag(const Target& target) const {
    constexpr std::array places{0.5, 0.25, 0.75, 0.1, 0.9}; // parts of its width
    const auto middle = placeToPress(target);
    if (!middle) return middle;
    const auto& content = content_.stack.find(target.surface)->content;
    const auto frame = viewAt(content, target.path)->frame;
    for (const double part : places) {
        const Point place{frame.x + part * frame.width, middle->y};
        if (dragSourceAt(content, place) == target.path) return place;
    }
    return std::unexpected(inQuotes(target.names.front()) + " has no room to drag it by");
}

std::expected<TargetFinder::DropPlace, std::string> TargetFinder::placeToDrop(const Target& target) const {
    const auto* surface = content_.stack.find(target.surface);
    const auto* laidOut = surface ? viewAt(surface->content, target.path) : nullptr;
    if (!laidOut) return std::unexpected(inQuotes(target.names.front()) + " is gone");
    const auto shown = shownPart(surface->content, target.path);
    if (shown.height < std::min(sightMin, laidOut->frame.height)) {
        const auto& scroll = *scrollAround(surface->content, target.path);
        const bool isBelow = laidOut->frame.minY() > scroll.frame.midY();
        return DropPlace{{scroll.frame.midX(),
                          isBelow ? scroll.frame.maxY() - edgeDistance : scroll.frame.minY() + edgeDistance},
                         false};
    }
    if (isCovered(*surface, shown))
        return std::unexpected(inQuotes(target.names.front()) + " can't be reached: something covers it");
    return DropPlace{shown.middle()};
}

} // namespace mac_model
