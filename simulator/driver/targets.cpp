#include "driver/targets.h"

#include "desktop/strict_json.h"
#include "driver/surface_tree.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace mac_model {

namespace {

constexpr std::size_t namesListedMax = 40;

using Kind = Target::Kind;

std::vector<Target> only(std::vector<Target> targets, auto matches) {
    std::erase_if(targets, [&](const Target& target) { return !matches(target); });
    return targets;
}

std::string listOf(const std::vector<Target>& targets) {
    std::string list;
    std::size_t listed = 0;
    for (const auto& target : targets) {
        if (target.names.empty()) continue;
        if (++listed > namesListedMax) return list + ", …";
        list += (list.empty() ? "" : ", ") + inQuotes(target.names.front()) +
                (target.isEnabled ? "" : " (disabled)");
    }
    return list.empty() ? "nothing" : list;
}

std::string placesOf(const std::vector<Target>& targets) {
    std::string places;
    for (const auto& target : targets) {
        const auto middle = target.frame.middle();
        places += (places.empty() ? "" : ", ") + inQuotes(target.names.front()) + " at [" +
                  std::to_string(static_cast<int>(middle.x)) + ", " +
                  std::to_string(static_cast<int>(middle.y)) + "]";
    }
    return places;
}

bool isPressable(const Target& target) {
    return target.kind == Kind::Control || target.kind == Kind::MenuEntry;
}

} // namespace

void addName(Target& target, const std::string& name) {
    if (!name.empty() && std::ranges::find(target.names, name) == target.names.end())
        target.names.push_back(name);
}

void TargetFinder::addContent(const Surface& surface, std::vector<Target>& targets) const {
    if (surface.hasTitleBar && !isCovered(surface, surface.closeButton()))
        targets.push_back(
            {.kind = Kind::Control, .names = {closeButtonText}, .frame = surface.closeButton()});
    forEachView(surface.content, [&](const LaidOutView& laidOut, const ViewPath& path) {
        const bool isText = tavrin::is<tavrin::kinds::Text>(laidOut.view);
        if (!isText && !isControl(laidOut.view)) return;
        if (!isReachable(surface, laidOut, path)) return;
        Target target{.kind = isControl(laidOut.view) ? Kind::Control : Kind::Text,
                      .frame = laidOut.frame,
                      .isEnabled = laidOut.view.isEnabled,
                      .surface = surface.identifier,
                      .path = path};
        addName(target, shownText(laidOut));
        addName(target, laidOut.view.accessibilityLabel);
        addName(target, laidOut.view.help);
        targets.push_back(std::move(target));
    });
}

void TargetFinder::addRows(const Surface& menu, std::vector<Target>& targets) {
    for (std::size_t i = 0; i < menu.rows.size(); ++i) {
        const auto& row = menu.rows[i];
        if (row.item.separator) continue;
        Target target{.kind = Kind::MenuEntry,
                      .frame = row.frame,
                      .isEnabled = row.item.enabled,
                      .surface = menu.identifier,
                      .row = i};
        addName(target, row.item.title);
        targets.push_back(std::move(target));
    }
}

std::vector<Target> TargetFinder::onSurfaces() const {
    std::vector<Target> targets;
    const bool isMenuOpen = content_.menus.isOpen();
    for (const auto& surface : content_.stack.backToFront()) {
        addRows(*surface, targets);
        const bool isKept = surface->kind == SurfaceKind::Drag || content_.stack.alertBefore(*surface);
        if (!isMenuOpen && !isKept) addContent(*surface, targets);
    }
    return targets;
}

Target TargetFinder::targetFor(const StatusItemRecord& item) const {
    Target target{.kind = Kind::StatusItem,
                  .frame = *item.frame,
                  .isEnabled = item.spec.enabled,
                  .item = item.identifier};
    addName(target, displayName(item, mac_.processes()));
    addName(target, item.spec.title);
    addName(target, item.spec.help);
    addName(target, item.spec.identifier);
    return target;
}

std::vector<Target> TargetFinder::inMenuBar() const {
    std::vector<Target> targets;
    if (const auto* primary = mac_.screens().primary())
        for (const auto& title : content_.applicationMenus.titlesOn(*primary))
            targets.push_back({.kind = Kind::MenuTitle, .names = {title.title}, .frame = title.frame});
    for (const auto* item : mac_.statusItems().fromLeftToRight())
        if (item->isDrawn && item->spec.accessible) targets.push_back(targetFor(*item));
    return targets;
}

std::vector<Target> TargetFinder::matching(std::vector<Target> targets, std::string_view text) const {
    const auto exactly = [&](const std::string& name) { return name == text; };
    const auto loosely = [&](const std::string& name) {
        return mac_.text().compareIgnoringCase(name, text) == std::strong_ordering::equal;
    };
    const auto has = [](auto matches) {
        return [matches](const Target& target) { return std::ranges::any_of(target.names, matches); };
    };
    auto exact = only(targets, has(exactly));
    return exact.empty() ? only(std::move(targets), has(loosely)) : exact;
}

std::expected<Target, std::string> TargetFinder::oneOf(const std::vector<Target>& targets,
                                                       std::string_view text) const {
    const auto found = matching(targets, text);
    const auto enabled = only(found, [](const Target& target) { return target.isEnabled; });
    if (enabled.size() == 1) return enabled.front();
    if (enabled.size() > 1) return std::unexpected("several things are called so: " + placesOf(enabled));
    if (!found.empty()) return std::unexpected(inQuotes(text) + " is there but disabled");
    return std::unexpected("nothing on the screen is called " + inQuotes(text) + "; there is " +
                           listOf(targets));
}

std::expected<Target, std::string> TargetFinder::control(std::string_view text) const {
    auto targets = only(onSurfaces(), isPressable);
    auto bar = inMenuBar();
    if (matching(targets, text).empty()) std::ranges::move(bar, std::back_inserter(targets));
    return oneOf(targets, text);
}

std::expected<Target, std::string> TargetFinder::anything(std::string_view text) const {
    const auto texts = only(onSurfaces(), [](const Target& target) { return target.kind == Kind::Text; });
    auto found = control(text);
    if (found || matching(texts, text).empty()) return found;
    return matching(only(onSurfaces(), isPressable), text).empty() ? oneOf(texts, text) : found;
}

std::expected<Target, std::string> TargetFinder::menuOwner(std::string_view name) const {
    auto targets = inMenuBar();
    for (auto& target : targets) {
        const auto* item = mac_.statusItems().find(target.item);
        const auto* owner = item ? mac_.processes().find(item->owner) : nullptr;
        if (!owner) continue;
        addName(target, owner->application.name);
        addName(target, owner->application.bundleIdentifier);
    }
    if (matching(targets, name).empty())
        if (auto view = withContextMenu(name)) return view;
    return oneOf(targets, name);
}

std::expected<Target, std::string> TargetFinder::menuEntry(SurfaceIdentifier menu,
                                                           std::string_view title) const {
    std::vector<Target> entries;
    if (const auto* surface = content_.stack.find(menu)) addRows(*surface, entries);
    return oneOf(entries, title);
}

std::expected<Target, std::string> TargetFinder::statusItem(std::string_view bundle,
                                                            std::optional<int> index) const {
    std::vector<const StatusItemRecord*> items;
    for (const auto* item : mac_.statusItems().fromLeftToRight()) {
        const auto* owner = mac_.processes().find(item->owner);
        if (owner && owner->application.bundleIdentifier == bundle) items.push_back(item);
    }
    if (items.empty()) return std::unexpected(inQuotes(bundle) + " has no item in the menu bar");
    if (!index) {
        const auto isClickable = [](const auto* item) { return item->isDrawn && item->spec.accessible; };
        const auto found = std::ranges::find_if(items, isClickable);
        if (found == items.end()) return std::unexpected("no item of " + inQuotes(bundle) + " is drawn");
        return targetFor(**found);
    }
    if (*index >= static_cast<int>(items.size()))
        return std::unexpected(inQuotes(bundle) + " has only " + std::to_string(items.size()) +
                               " items; the first has the index 0");
    const auto& item = *items[static_cast<std::size_t>(*index)];
    if (!item.isDrawn)
        return std::unexpected("that item is not drawn" +
                               (item.why ? " (" + std::string(nameOf(*item.why)) + ")" : ""));
    return targetFor(item);
}

bool TargetFinder::isOnScreen(Point point) const {
    return std::ranges::any_of(mac_.screens().screens(),
                               [&](const auto& screen) { return screen.frame.contains(point); });
}

std::expected<Point, std::string> TargetFinder::placeToPress(const Target& target) const {
    auto* surface = content_.stack.find(target.surface);
    if (!surface) return target.frame.middle();
    if (target.kind == Kind::MenuEntry) {
        content_.menus.reveal(target.surface, target.row);
        return surface->rows[target.row].frame.middle();
    }
    // On a copy first: what can't be pressed isn't scrolled either.
    auto revealed = surface->content;
    reveal(revealed, target.path);
    const auto middle = viewAt(revealed, target.path)->frame.middle();
    if (content_.stack.at(middle) != surface)
        return std::unexpected(inQuotes(target.names.front()) + " can't be reached: something covers it");
    if (isOnScreen(middle)) reveal(surface->content, target.path);
    return middle;
}

} // namespace mac_model
