#include "ui/configure_rows.h"

#include "views/view_builders.h"

#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace tavrin {

namespace {

constexpr double iconSize = 20;
constexpr double symbolSize = 14; // points of type; the picture is a little larger
constexpr double textWidth = 230;

View symbolInIconsPlace(const std::string& name) {
    auto view = symbol(name, symbolSize);
    view.width = view.height = iconSize;
    return view;
}

View itemIcon(const MenuBarItem& item) {
    if (!item.icon) return symbol("app.dashed", iconSize);
    if (const auto* application = std::get_if<IconOfApplication>(&*item.icon))
        return icon(*application, iconSize);
    return symbolInIconsPlace(std::get<std::string>(*item.icon));
}

View itemTexts(const MenuBarItemSnapshot& item) {
    const TextOptions caption{.style = TextStyle::Caption, .tone = Tone::Secondary};
    std::vector<View> lines{text(item.name)};
    if (!item.isMovable) {
        lines.push_back(text("macOS keeps it in place", caption));
    } else if (item.name != item.applicationName) {
        lines.push_back(text(item.applicationName, caption));
    }
    return column(std::move(lines), {.spacing = 1, .width = textWidth});
}

} // namespace

View configureRow(const MenuBarItem& item, RowMove kind, std::function<void()> move) {
    const auto& snapshot = item.snapshot;
    auto view = row({itemIcon(item), itemTexts(snapshot), spacer()}, {.spacing = 8, .padding = 4});
    view.accessibilityLabel = snapshot.name;
    if (!snapshot.isMovable) return view;
    const bool hides = kind == RowMove::Hide;
    const std::string verb = hides ? "Hide" : "Show";
    auto moveButton = button(verb, move, {.style = ButtonStyle::Plain, .help = verb + " " + snapshot.name});
    moveButton.accessibilityLabel = verb + " " + snapshot.name;
    view.children.push_back(std::move(moveButton));
    view.help = "Drag to the other section, or use the context menu or the space bar to move it there.";
    view.contextMenu.push_back({hides ? "Move to Hidden" : "Move to Shown", move});
    view.isFocusable = true;
    view.keyActions.push_back({"space", std::move(move)});
    view.dragValue = snapshot.id;
    return view;
}

} // namespace tavrin
