#include "ui/collapsed_menu_view.h"

#include "platform/view_builders.h"

#include <string>
#include <utility>
#include <vector>

namespace tavrin {

namespace {

constexpr double windowWidth = 360;
constexpr double listHeightMax = 420;
constexpr double iconSize = 20;

enum class Section { Shown, Hidden };

View header() {
    return row({symbol("menubar.rectangle", 18, Tone::Accent),
                text("Menu Bar Items", {.style = TextStyle::Heading})},
               {.spacing = 8});
}

View accessibilityCard(MenuBarManager& manager) {
    return card(
        {row({symbol("hand.raised.fill", 16, Tone::Warning),
              text("Accessibility access is required", {.style = TextStyle::Heading})}),
         text("Tavrin uses Accessibility only to discover and Command-drag the menu bar items you explicitly "
              "apply.",
              {.tone = Tone::Secondary}),
         text("Turn on Tavrin in the list, or add it with the + button.", {.tone = Tone::Secondary}),
         button("Open Accessibility Settings", [&manager] { manager.openAccessibilitySettings(); })},
        {.spacing = 8, .padding = 12});
}

View errorCard(const std::string& message) {
    return card(
        {row({symbol("exclamationmark.triangle.fill", 16, Tone::Warning), text(message)}, {.spacing = 8})},
        {.padding = 12});
}

View placeholder(View picture, std::string words) {
    return column({std::move(picture), text(std::move(words), {.tone = Tone::Secondary, .isCentered = true})},
                  {.spacing = 10, .padding = 24, .isCentered = true});
}

View itemIcon(const MenuBarItem& item) {
    if (!item.icon) return symbol("app.dashed", iconSize);
    View view;
    view.kind = ViewKind::Icon;
    view.icon = item.icon;
    view.width = iconSize;
    view.height = iconSize;
    return view;
}

View itemTexts(const MenuBarItemSnapshot& item) {
    std::vector<View> lines{text(item.name)};
    if (!item.isMovable) {
        lines.push_back(
            text("macOS keeps it in place", {.style = TextStyle::Caption, .tone = Tone::Secondary}));
    } else if (item.name != item.applicationName) {
        lines.push_back(text(item.applicationName, {.style = TextStyle::Caption, .tone = Tone::Secondary}));
    }
    return column(std::move(lines), {.spacing = 1});
}

View itemRow(MenuBarManager& manager, const MenuBarItem& item, Section section) {
    const bool hides = section == Section::Shown;
    auto view = row({itemIcon(item), itemTexts(item.snapshot), spacer()}, {.spacing = 8, .padding = 4});
    view.accessibilityLabel = item.snapshot.name;
    if (!item.snapshot.isMovable) return view;
    const auto move = [&manager, item, hides] { manager.setItem(item, hides); };
    const std::string verb = hides ? "Hide" : "Show";
    view.children.push_back(
        button(verb, move, {.style = ButtonStyle::Plain, .help = verb + " " + item.snapshot.name}));
    view.contextMenu.push_back({hides ? "Move to Hidden" : "Move to Shown", move});
    return view;
}

View itemSection(MenuBarManager& manager, Section section) {
    const bool isShown = section == Section::Shown;
    const auto items = isShown ? manager.visibleItems() : manager.hiddenItems();
    std::vector<View> rows{row({text(isShown ? "Shown" : "Hidden", {.style = TextStyle::Heading}), spacer(),
                                text(std::to_string(items.size()), {.tone = Tone::Secondary})})};
    for (const auto& item : items) rows.push_back(itemRow(manager, item, section));
    if (items.empty()) {
        rows.push_back(text(isShown ? "No item is always shown." : "No item is hidden.",
                            {.style = TextStyle::Caption, .tone = Tone::Secondary}));
    }
    return card(std::move(rows), {.spacing = 2, .padding = 10});
}

View sections(MenuBarManager& manager) {
    View scroll;
    scroll.kind = ViewKind::Scroll;
    scroll.height = listHeightMax;
    scroll.children.push_back(column(
        {itemSection(manager, Section::Shown), itemSection(manager, Section::Hidden)}, {.spacing = 10}));
    return scroll;
}

View content(MenuBarManager& manager) {
    const auto& state = manager.state();
    if (!manager.permission().isTrusted()) {
        return placeholder(symbol("lock", 28, Tone::Secondary), "Grant access to load menu bar apps");
    }
    if (state.detectedItems.get().empty()) {
        if (state.isScanning.get()) return placeholder(progress(), "Reading menu bar items…");
        return placeholder(symbol("menubar.rectangle", 28, Tone::Secondary),
                           "No supported menu bar items found");
    }
    return sections(manager);
}

View footer(MenuBarManager& manager) {
    auto refresh =
        button("", [&manager] { manager.refreshItems(); },
               {.style = ButtonStyle::Plain, .symbol = "arrow.clockwise", .help = "Refresh menu bar items"});
    refresh.accessibilityLabel = "Refresh menu bar items";
    std::vector<View> children{std::move(refresh)};
    if (manager.state().isScanning.get()) {
        children.push_back(progress());
        children.push_back(
            text("Reading menu bar items…", {.style = TextStyle::Caption, .tone = Tone::Secondary}));
    }
    children.push_back(spacer());
    return row(std::move(children));
}

} // namespace

View collapsedMenuView(MenuBarManager& manager) {
    std::vector<View> parts{header(), divider()};
    if (!manager.permission().isTrusted()) parts.push_back(accessibilityCard(manager));
    if (const auto& message = manager.state().errorMessage.get()) parts.push_back(errorCard(*message));
    parts.push_back(content(manager));
    parts.push_back(divider());
    parts.push_back(footer(manager));
    return column(std::move(parts), {.spacing = 12, .padding = 16, .width = windowWidth});
}

} // namespace tavrin
