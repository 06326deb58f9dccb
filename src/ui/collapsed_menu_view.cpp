#include "ui/collapsed_menu_view.h"

#include "ui/configure_rows.h"
#include "views/view_builders.h"

#include <utility>
#include <vector>

namespace tavrin {

namespace {

constexpr double windowWidth = 380;
constexpr double listHeightMax = 440;
constexpr double errorHeightMax = 132; // eight lines

/// While items are placed, Stop stands for Apply and Hide.
constexpr const char* applyOrStop = "apply";

TextOptions caption() { return {.style = TextStyle::Caption, .tone = Tone::Secondary}; }

View header() {
    return row({symbol("menubar.rectangle", 18, Tone::Accent),
                text("Menu Bar Items", {.style = TextStyle::Heading})});
}

View accessibilityCard(const ConfigureModel& model) {
    return card({row({symbol("hand.raised.fill", 16, Tone::Warning),
                      text("Accessibility access is required", {.style = TextStyle::Heading})}),
                 text(model.texts.reasonForAccess, {.tone = Tone::Secondary}),
                 text("Turn on Tavrin in the list, or add it with the + button.", {.tone = Tone::Secondary}),
                 button("Open Accessibility Settings", model.actions.openAccessibilitySettings)},
                {.spacing = 8, .padding = 12});
}

View errorCard(const std::string& message) {
    auto words = text(message);
    words.width = windowWidth - 92;
    auto besideScrollBar = column({std::move(words)}, {.width = windowWidth - 80});
    return card({row({symbol("exclamationmark.triangle.fill", 16, Tone::Warning),
                      scroll(std::move(besideScrollBar), errorHeightMax)})},
                {.padding = 12});
}

View placeholder(View picture, std::string words) {
    return column({std::move(picture), text(std::move(words), {.tone = Tone::Secondary, .isCentered = true})},
                  {.spacing = 10, .padding = 24, .isCentered = true});
}

View applyBar(const ConfigureModel& model) {
    if (model.isApplying) {
        const auto& placing = model.applyProgress;
        // A drag may take the pointer away before the mouse button is released.
        auto stop = button("Stop", model.actions.stopApplying,
                           {.help = "Stop placing items", .actsWhenPressed = true});
        stop.identity = applyOrStop;
        return row({progress(), text(placing.empty() ? "Getting ready…" : placing, caption()), spacer(),
                    std::move(stop)});
    }
    auto summary = text(model.texts.placement, caption());
    summary.width = windowWidth - 190;
    auto apply = button("Apply and Hide", model.actions.applyAndHide,
                        {.style = ButtonStyle::Prominent, .isDefault = true});
    apply.identity = applyOrStop;
    return row({std::move(summary), spacer(), std::move(apply)});
}

/// While it is, that is all there is to show.
bool isReadingFirst(const ConfigureModel& model) {
    const bool isEmpty = model.visibleItems.empty() && model.hiddenItems.empty();
    return model.isTrusted && isEmpty && (model.isScanning || !model.hasScanned);
}

View footer(const ConfigureModel& model) {
    auto refresh =
        button("", model.actions.refreshItems,
               {.style = ButtonStyle::Plain, .symbol = "arrow.clockwise", .help = "Refresh menu bar items"});
    refresh.accessibilityLabel = "Refresh menu bar items";
    refresh.isEnabled = !model.isApplying;
    refresh.identity = "refresh";
    auto pins =
        button("", nullptr, {.style = ButtonStyle::Plain, .symbol = "pin", .help = "Pinned menu items"});
    pins.accessibilityLabel = "Pinned menu items";
    pins.isEnabled = false; // until there is something to pin
    std::vector<View> children{std::move(refresh), std::move(pins)};
    if (model.isScanning && !isReadingFirst(model)) {
        children.push_back(progress());
        children.push_back(text("Reading menu bar items…", caption()));
    }
    children.push_back(spacer());
    return row(std::move(children));
}

} // namespace

void CollapsedMenuView::dragDidMove(Section section, bool isOver) {
    if (isOver) {
        targetedSection_ = section;
    } else if (targetedSection_ == section) {
        targetedSection_.reset();
    }
}

View CollapsedMenuView::section(const ConfigureModel& model, Section section) {
    const bool isShown = section == Section::Shown;
    const auto& items = isShown ? model.visibleItems : model.hiddenItems;
    const auto& actions = model.actions;
    std::vector<View> rows{row({text(isShown ? "Shown" : "Hidden", {.style = TextStyle::Heading}), spacer(),
                                text(std::to_string(items.size()), {.tone = Tone::Secondary})},
                               {.padding = 4})};
    for (const auto& item : items) {
        const auto move = [setItems = actions.setItems, id = item.snapshot.id, isShown] {
            setItems({id}, isShown);
        };
        rows.push_back(configureRow(item, isShown ? RowMove::Hide : RowMove::Show, move));
    }
    const char* dropText = isShown ? "Drag items here to keep them shown." : "Drag items here to hide them.";
    rows.push_back(row({text(dropText, caption())}, {.padding = 4}));
    auto view = card(std::move(rows), {.spacing = 2, .padding = 10});
    view.isHighlighted = targetedSection_ == section;
    view.onDragOver = [this, viewChanged = actions.viewChanged, section](bool isOver) {
        dragDidMove(section, isOver);
        viewChanged();
    };
    view.onDrop = [this, setItems = actions.setItems, isShown](const std::string& identifier) {
        targetedSection_.reset();
        setItems({identifier}, !isShown);
    };
    return view;
}

View CollapsedMenuView::sections(const ConfigureModel& model) {
    auto lists = column({section(model, Section::Shown), section(model, Section::Hidden)},
                        {.spacing = 10, .width = windowWidth - 32});
    return column({scroll(std::move(lists), listHeightMax), text(model.texts.explanation, caption())},
                  {.spacing = 10});
}

View CollapsedMenuView::body(const ConfigureModel& model) {
    if (!model.isTrusted) {
        return placeholder(symbol("lock", 28, Tone::Secondary), "Grant access to load menu bar apps");
    }
    if (!model.visibleItems.empty() || !model.hiddenItems.empty()) return sections(model);
    if (isReadingFirst(model)) return placeholder(progress(), "Reading menu bar items…");
    return placeholder(symbol("menubar.rectangle", 28, Tone::Secondary), "No supported menu bar items found");
}

View CollapsedMenuView::content(const ConfigureModel& model) {
    std::vector<View> parts{header(), divider()};
    if (!model.isTrusted) parts.push_back(accessibilityCard(model));
    if (model.errorMessage) parts.push_back(errorCard(*model.errorMessage));
    parts.push_back(body(model));
    if (model.isTrusted) parts.push_back(applyBar(model));
    parts.push_back(divider());
    parts.push_back(footer(model));
    return column(std::move(parts), {.spacing = 12, .padding = 16, .width = windowWidth});
}

} // namespace tavrin
