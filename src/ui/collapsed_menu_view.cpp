#include "ui/collapsed_menu_view.h"

#include "ui/configure_rows.h"
#include "views/view_builders.h"

#include <utility>
#include <vector>

namespace tavrin {

namespace {

constexpr double windowWidth = 380;
constexpr double listHeightMax = 440;

TextOptions caption() { return {.style = TextStyle::Caption, .tone = Tone::Secondary}; }

std::string counted(std::size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

View header() {
    return row({symbol("menubar.rectangle", 18, Tone::Accent),
                text("Menu Bar Items", {.style = TextStyle::Heading})});
}

View accessibilityCard(MenuBarManager& manager) {
    const bool isDivider = manager.runtimeMode() == MenuBarRuntimeMode::divider;
    return card(
        {row({symbol("hand.raised.fill", 16, Tone::Warning),
              text("Accessibility access is required", {.style = TextStyle::Heading})}),
         text(isDivider ? "Tavrin uses Accessibility only to discover and Command-drag the menu bar items "
                          "you explicitly apply."
                        : "Tavrin uses Accessibility only to read which apps currently have menu bar icons. "
                          "Hiding and revealing already work without it.",
              {.tone = Tone::Secondary}),
         text("Turn on Tavrin in the list, or add it with the + button.", {.tone = Tone::Secondary}),
         button("Open Accessibility Settings", [&manager] { manager.openAccessibilitySettings(); })},
        {.spacing = 8, .padding = 12});
}

View errorCard(const std::string& message) {
    auto words = text(message);
    words.width = windowWidth - 92;
    return card({row({symbol("exclamationmark.triangle.fill", 16, Tone::Warning), std::move(words)})},
                {.padding = 12});
}

View placeholder(View picture, std::string words) {
    return column({std::move(picture), text(std::move(words), {.tone = Tone::Secondary, .isCentered = true})},
                  {.spacing = 10, .padding = 24, .isCentered = true});
}

View explanation(MenuBarRuntimeMode mode) {
    return text(
        mode == MenuBarRuntimeMode::divider
            ? "Drag items you do not need to see into Hidden. Items macOS puts behind the notch show in a "
              "tray "
              "under it while everything is shown; macOS keeps Clock and Control Center fixed."
            : "Drag items you do not need to see into Hidden. macOS 27 hides all of an app’s icons together "
              "and keeps Clock and Control Center fixed.",
        caption());
}

View applyBar(MenuBarManager& manager) {
    const auto& state = manager.state();
    if (state.isApplyingConfiguration.get()) {
        const auto& placing = state.applyProgress.get();
        return row({progress(), text(placing.empty() ? "Getting ready…" : placing, caption()), spacer(),
                    button("Stop", [&manager] { manager.cancelPendingConfiguration(); },
                           {.help = "Stop placing items"})});
    }
    const bool isDivider = manager.runtimeMode() == MenuBarRuntimeMode::divider;
    auto summary = text(isDivider ? placementSummary(manager.collapsePolicy()) : "", caption());
    summary.width = windowWidth - 190;
    auto apply = button("Apply and Hide", [&manager] { manager.applyConfigurationAndHide(); },
                        {.style = ButtonStyle::Prominent});
    apply.isDefaultButton = true;
    return row({std::move(summary), spacer(), std::move(apply)});
}

View footer(MenuBarManager& manager) {
    auto refresh =
        button("", [&manager] { manager.refreshItems(); },
               {.style = ButtonStyle::Plain, .symbol = "arrow.clockwise", .help = "Refresh menu bar items"});
    refresh.accessibilityLabel = "Refresh menu bar items";
    refresh.isEnabled = !manager.state().isApplyingConfiguration.get();
    auto pins =
        button("", nullptr, {.style = ButtonStyle::Plain, .symbol = "pin", .help = "Pinned menu items"});
    pins.accessibilityLabel = "Pinned menu items";
    pins.isEnabled = false; // until there is something to pin
    std::vector<View> children{std::move(refresh), std::move(pins)};
    if (manager.state().isScanning.get()) {
        children.push_back(progress());
        children.push_back(text("Reading menu bar items…", caption()));
    }
    children.push_back(spacer());
    return row(std::move(children));
}

} // namespace

std::string placementSummary(const SkerrowPolicy& policy) {
    const auto moves = policy.pendingMoves().size();
    const auto overflow = policy.trayOverflow().size();
    std::string summary;
    if (moves > 0) summary = counted(moves, "item") + " will move";
    if (moves > 0 && overflow > 0) summary += " • ";
    if (overflow > 0) summary += counted(overflow, "overflow item") + " will show only with all items";
    return summary;
}

void CollapsedMenuView::dragDidMove(MenuBarManager& manager, Section section, bool isOver) {
    if (isOver) {
        targetedSection_ = section;
    } else if (targetedSection_ == section) {
        targetedSection_.reset();
    }
    manager.configureViewChanged();
}

View CollapsedMenuView::section(MenuBarManager& manager, Section section) {
    const bool isShown = section == Section::Shown;
    const auto items = isShown ? manager.visibleItems() : manager.hiddenItems();
    std::vector<View> rows{row({text(isShown ? "Shown" : "Hidden", {.style = TextStyle::Heading}), spacer(),
                                text(std::to_string(items.size()), {.tone = Tone::Secondary})},
                               {.padding = 4})};
    for (const auto& item : items) {
        const auto move = [&manager, item, isShown] { manager.setItem(item, isShown); };
        rows.push_back(configureRow(item, isShown ? RowMove::Hide : RowMove::Show, move));
    }
    const char* dropText = isShown ? "Drag items here to keep them shown." : "Drag items here to hide them.";
    rows.push_back(row({text(dropText, caption())}, {.padding = 4}));
    auto view = card(std::move(rows), {.spacing = 2, .padding = 10});
    view.isHighlighted = targetedSection_ == section;
    view.onDragOver = [this, &manager, section](bool isOver) { dragDidMove(manager, section, isOver); };
    view.onDrop = [this, &manager, isShown](const std::string& identifier) {
        targetedSection_.reset();
        manager.setItems({identifier}, !isShown);
    };
    return view;
}

View CollapsedMenuView::sections(MenuBarManager& manager) {
    View scroll;
    scroll.kind = ViewKind::Scroll;
    scroll.height = listHeightMax;
    scroll.children.push_back(column({section(manager, Section::Shown), section(manager, Section::Hidden)},
                                     {.spacing = 10, .width = windowWidth - 32}));
    return column({std::move(scroll), explanation(manager.runtimeMode())}, {.spacing = 10});
}

View CollapsedMenuView::body(MenuBarManager& manager) {
    const auto& state = manager.state();
    if (!manager.permission().isTrusted()) {
        return placeholder(symbol("lock", 28, Tone::Secondary), "Grant access to load menu bar apps");
    }
    if (!state.detectedItems.get().empty()) return sections(manager);
    if (state.isScanning.get()) return placeholder(progress(), "Reading menu bar items…");
    return placeholder(symbol("menubar.rectangle", 28, Tone::Secondary), "No supported menu bar items found");
}

View CollapsedMenuView::content(MenuBarManager& manager) {
    const bool isTrusted = manager.permission().isTrusted();
    std::vector<View> parts{header(), divider()};
    if (!isTrusted) parts.push_back(accessibilityCard(manager));
    if (const auto& message = manager.state().errorMessage.get()) parts.push_back(errorCard(*message));
    parts.push_back(body(manager));
    if (isTrusted) parts.push_back(applyBar(manager));
    parts.push_back(divider());
    parts.push_back(footer(manager));
    return column(std::move(parts), {.spacing = 12, .padding = 16, .width = windowWidth});
}

} // namespace tavrin
