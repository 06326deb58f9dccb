#include "views/view_queries.h"

#include <algorithm>
#include <ranges>
#include <utility>
#include <variant>

namespace mac_model {

namespace {

namespace kinds = tavrin::kinds;

bool reaches(const LaidOutView& view, Point point) {
    return !tavrin::is<kinds::Scroll>(view.view) || view.frame.contains(point);
}

bool findPath(const LaidOutView& view, Point point, const std::function<bool(const LaidOutView&)>& matches,
              ViewPath& path) {
    if (!reaches(view, point)) return false;
    for (std::size_t i = view.children.size(); i-- > 0;) {
        path.push_back(i);
        if (findPath(view.children[i], point, matches, path)) return true;
        path.pop_back();
    }
    return view.frame.contains(point) && matches(view);
}

void forEachBelow(const LaidOutView& view, ViewPath& path,
                  const std::function<void(const LaidOutView&, const ViewPath&)>& visit) {
    visit(view, path);
    for (std::size_t i = 0; i < view.children.size(); ++i) {
        path.push_back(i);
        forEachBelow(view.children[i], path, visit);
        path.pop_back();
    }
}

} // namespace

std::string shownText(const LaidOutView& view) {
    return tavrin::is<kinds::ShortcutRecorder>(view.view) ? view.recorderTitle : tavrin::shownText(view.view);
}

View viewOf(const LaidOutView& laidOut) {
    auto view = laidOut.view;
    for (const auto& child : laidOut.children) view.children.push_back(viewOf(child));
    return view;
}

const LaidOutView* viewAt(const LaidOutView& root, const ViewPath& path) {
    const LaidOutView* view = &root;
    for (const auto index : path) {
        if (index >= view->children.size()) return nullptr;
        view = &view->children[index];
    }
    return view;
}

LaidOutView* viewAt(LaidOutView& root, const ViewPath& path) {
    return const_cast<LaidOutView*>(viewAt(std::as_const(root), path));
}

std::optional<ViewPath> deepestAt(const LaidOutView& root, Point point,
                                  const std::function<bool(const LaidOutView&)>& matches) {
    ViewPath path;
    if (!findPath(root, point, matches, path)) return std::nullopt;
    return path;
}

std::optional<ViewPath> deepestPressedAt(const LaidOutView& root, Point point,
                                         const std::function<bool(const LaidOutView&)>& matches) {
    const auto found = deepestAt(root, point, matches);
    const auto control = controlAt(root, point);
    return found && control && control->size() > found->size() ? std::nullopt : found;
}

std::optional<ViewPath> controlAt(const LaidOutView& root, Point point) {
    return deepestAt(root, point, [](const LaidOutView& view) { return isControl(view.view); });
}

LaidOutView* scrollAt(LaidOutView& root, Point point) {
    const auto path =
        deepestAt(root, point, [](const LaidOutView& view) { return view.scrollOffsetMax > 0; });
    if (!path) return nullptr;
    LaidOutView* scroll = &root;
    for (const auto index : *path) scroll = &scroll->children[index];
    return scroll;
}

const LaidOutView* contextMenuAt(const LaidOutView& root, Point point) {
    const auto path =
        deepestAt(root, point, [](const LaidOutView& view) { return !view.view.contextMenu.empty(); });
    return path ? viewAt(root, *path) : nullptr;
}

const LaidOutView* defaultButton(const LaidOutView& root) {
    const auto* button = std::get_if<kinds::Button>(&root.view.kind);
    if (button && button->isDefault && root.view.isEnabled) return &root;
    for (const auto& child : root.children)
        if (const auto* found = defaultButton(child)) return found;
    return nullptr;
}

Rect shownPart(const LaidOutView& root, const ViewPath& path) {
    Rect shown = viewAt(root, path)->frame;
    const LaidOutView* view = &root;
    for (const auto index : path) {
        if (tavrin::is<kinds::Scroll>(view->view)) {
            const double top = std::max(shown.minY(), view->frame.minY());
            const double bottom = std::min(shown.maxY(), view->frame.maxY());
            shown = {shown.x, top, shown.width, std::max(0.0, bottom - top)};
        }
        view = &view->children[index];
    }
    return shown;
}

bool isInSight(const LaidOutView& root, const ViewPath& path) {
    return shownPart(root, path).contains(viewAt(root, path)->frame.middle());
}

void reveal(LaidOutView& root, const ViewPath& path) {
    LaidOutView* view = &root;
    for (const auto index : path) {
        if (tavrin::is<kinds::Scroll>(view->view)) {
            const auto target = viewAt(root, path)->frame;
            const double below = target.maxY() - view->frame.maxY();
            const double above = view->frame.minY() - target.minY();
            if (below > 0)
                scrollTo(*view, view->scrollOffset + below);
            else if (above > 0)
                scrollTo(*view, view->scrollOffset - above);
        }
        view = &view->children[index];
    }
}

void forEachView(const LaidOutView& root,
                 const std::function<void(const LaidOutView&, const ViewPath&)>& visit) {
    ViewPath path;
    forEachBelow(root, path, visit);
}

} // namespace mac_model
