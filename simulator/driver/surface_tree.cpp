#include "driver/surface_tree.h"

#include "driver/json_shapes.h"
#include "screen/keyboard_focus.h"
#include "screen/menu_layout.h"
#include "views/view_queries.h"

#include <array>

namespace mac_model {

namespace {

using nlohmann::json;
using tavrin::ViewKind;

constexpr std::array<std::string_view, 4> textStyleNames{"body", "title", "heading", "caption"};
constexpr std::array<std::string_view, 5> toneNames{"primary", "secondary", "accent", "positive", "warning"};
constexpr std::array<std::string_view, 3> buttonStyleNames{"bordered", "prominent", "plain"};

void put(json& node, const char* key, const std::string& value) {
    if (!value.empty()) node[key] = value;
}

void putControl(json& node, const tavrin::View& view) {
    if (!isControl(view)) return;
    node["enabled"] = view.isEnabled;
    if (view.kind == ViewKind::Checkbox) node["checked"] = view.isChecked;
    if (view.kind == ViewKind::ShortcutRecorder) node["value"] = view.text;
    if (view.isDefaultButton) node["default"] = true;
    if (view.kind == ViewKind::Button) node["buttonStyle"] = buttonStyleNames[std::size_t(view.buttonStyle)];
    if (view.isEnabled) node["actions"].push_back("AXPress");
}

/// How it is drawn, as far as that isn't the usual.
void putAppearance(json& node, const LaidOutView& laidOut) {
    const auto& view = laidOut.view;
    put(node, "symbol", view.symbol);
    if (view.pointSize > 0) node["pointSize"] = number(view.pointSize);
    if (view.icon) node["icon"] = view.icon->bundleIdentifier;
    if (view.kind == ViewKind::Card) node["card"] = true;
    if (view.textStyle != tavrin::TextStyle::Body)
        node["textStyle"] = textStyleNames[std::size_t(view.textStyle)];
    if (view.tone != tavrin::Tone::Primary) node["tone"] = toneNames[std::size_t(view.tone)];
    if (view.kind == ViewKind::Text && view.isCentered) node["centered"] = true;
    if (laidOut.lines.size() > 1) node["lines"] = laidOut.lines;
}

/// What a person can do with it besides pressing it, and what is being done.
void putInteraction(json& node, const tavrin::View& view) {
    for (const auto& action : view.contextMenu) node["actions"].push_back(action.name);
    if (view.isFocusable) node["focusable"] = true;
    if (view.dragValue) node["draggable"] = true;
    if (view.onDrop) node["dropTarget"] = true;
    if (view.isHighlighted) node["highlighted"] = true;
}

json nodeOf(const LaidOutView& laidOut, const LaidOutView* focused) {
    const auto& view = laidOut.view;
    json node{{"role", roleOf(view.kind)}, {"frame", frameShape(laidOut.frame)}};
    put(node, "text", textOf(view));
    if (!view.text.empty())
        put(node, "label", view.accessibilityLabel);
    else if (!view.accessibilityLabel.empty())
        node["titled"] = false; // said, not drawn
    put(node, "help", view.help);
    putControl(node, view);
    putAppearance(node, laidOut);
    putInteraction(node, view);
    if (laidOut.isRecording) node["recording"] = true;
    if (&laidOut == focused) node["focused"] = true;
    if (view.kind == ViewKind::Scroll) {
        node["value"] = number(laidOut.scrollOffset);
        node["scrollMax"] = number(laidOut.scrollOffsetMax);
    }
    for (const auto& child : laidOut.children)
        if (child.view.kind != ViewKind::Spacer) node["children"].push_back(nodeOf(child, focused));
    return node;
}

json nodeOf(const MenuRow& row, bool isHighlighted) {
    json node{{"role", row.item.role}, {"frame", frameShape(row.frame)}};
    if (row.item.separator) node["separator"] = true;
    put(node, "text", row.item.title);
    put(node, "identifier", row.item.identifier);
    put(node, "key", keyEquivalentText(row.item));
    put(node, "value", row.item.mark);
    put(node, "icon", row.item.icon);
    if (!row.item.separator) node["enabled"] = row.item.enabled;
    if (!row.item.mark.empty()) node["checked"] = row.item.mark == "✓";
    if (isHighlighted) node["highlighted"] = true;
    if (!row.item.items.empty()) node["submenu"] = true;
    if (isChoosable(row.item)) node["actions"] = {"AXPress"};
    return node;
}

json closeButton(const Surface& surface) {
    return {{"role", "AXButton"},
            {"text", closeButtonText},
            {"enabled", true},
            {"actions", {"AXPress"}},
            {"frame", frameShape(surface.closeButton())}};
}

} // namespace

std::string_view roleOf(ViewKind kind) {
    switch (kind) {
    case ViewKind::Text:
        return "AXStaticText";
    case ViewKind::Button:
    case ViewKind::ShortcutRecorder:
        return "AXButton";
    case ViewKind::Checkbox:
        return "AXCheckBox";
    case ViewKind::Scroll:
        return "AXScrollArea";
    case ViewKind::Symbol:
    case ViewKind::Icon:
        return "AXImage";
    case ViewKind::Divider:
        return "AXSplitter";
    case ViewKind::Progress:
        return "AXBusyIndicator";
    default:
        return "AXGroup";
    }
}

const std::string& textOf(const tavrin::View& view) {
    return view.text.empty() ? view.accessibilityLabel : view.text;
}

json treeOf(const Surface& surface, const std::string& owner, bool isKey) {
    json tree{{"id", std::uint64_t(surface.identifier)},
              {"kind", surfaceKindNames[std::size_t(surface.kind)]},
              {"owner", owner},
              {"title", surface.title},
              {"frame", frameShape(surface.frame)},
              {"key", isKey},
              {"children", json::array()}};
    if (surface.arrowX) tree["arrowX"] = number(*surface.arrowX);
    if (surface.hasTitleBar) tree["children"].push_back(closeButton(surface));
    const auto focus = isKey ? focusedPath(surface) : std::nullopt;
    const auto* focused = focus ? viewAt(surface.content, *focus) : nullptr;
    if (surface.kind != SurfaceKind::Menu) tree["children"].push_back(nodeOf(surface.content, focused));
    for (std::size_t i = 0; i < surface.rows.size(); ++i)
        tree["children"].push_back(nodeOf(surface.rows[i], surface.highlightedRow == i));
    return tree;
}

} // namespace mac_model
