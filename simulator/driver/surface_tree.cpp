#include "driver/surface_tree.h"

#include "base/base64.h"
#include "driver/json_shapes.h"
#include "screen/menu_layout.h"
#include "screen/menu_scrolling.h"
#include "views/view_queries.h"
#include "vocabulary/vocabulary.h"

#include <array>

namespace mac_model {

namespace {

using nlohmann::json;

namespace kinds = tavrin::kinds;

constexpr std::array<std::string_view, 4> textStyleNames{"body", "title", "heading", "caption"};
constexpr std::array<std::string_view, 5> toneNames{"primary", "secondary", "accent", "positive", "warning"};
constexpr std::array<std::string_view, 3> buttonStyleNames{"bordered", "prominent", "plain"};

void put(json& node, const char* key, const std::string& value) {
    if (!value.empty()) node[key] = value;
}

void putControl(json& node, const View& view) {
    if (!isControl(view)) return;
    node["enabled"] = view.isEnabled;
    if (view.isEnabled) node["actions"].push_back("AXPress");
}

void putText(json& node, TextStyle style, Tone tone) {
    if (style != TextStyle::Body) node["textStyle"] = textStyleNames[std::size_t(style)];
    if (tone != Tone::Primary) node["tone"] = toneNames[std::size_t(tone)];
}

void putButton(json& node, const kinds::Button& button) {
    put(node, "symbol", button.symbol);
    if (button.isDefault) node["default"] = true;
    node["buttonStyle"] = buttonStyleNames[std::size_t(button.style)];
}

void putSymbol(json& node, const kinds::Symbol& symbol) {
    put(node, "symbol", symbol.name);
    if (symbol.pointSize > 0) node["pointSize"] = number(symbol.pointSize);
    putText(node, TextStyle::Body, symbol.tone);
}

void putScroll(json& node, const LaidOutView& scroll) {
    node["value"] = number(scroll.scrollOffset);
    node["scrollMax"] = number(scroll.scrollOffsetMax);
}

void putRecorder(json& node, const LaidOutView& recorder) {
    node["value"] = recorder.recorderTitle;
    if (recorder.isRecording) node["recording"] = true;
}

/// Members that only views of its kind have, where they differ from the default.
void putKind(json& node, const LaidOutView& laidOut) {
    tavrin::visitKind(
        laidOut.view,
        [&](const kinds::Text& text) {
            putText(node, text.style, text.tone);
            if (text.isCentered) node["centered"] = true;
        },
        [&](const kinds::Symbol& symbol) { putSymbol(node, symbol); },
        [&](const kinds::Icon& icon) {
            if (icon.application) node["icon"] = icon.application->bundleIdentifier;
        },
        [&](const kinds::Button& button) { putButton(node, button); },
        [&](const kinds::Checkbox& checkbox) { node["checked"] = checkbox.isChecked; },
        [&](const kinds::ShortcutRecorder&) { putRecorder(node, laidOut); },
        [&](const kinds::Scroll&) { putScroll(node, laidOut); },
        [&](const kinds::Card&) { node["card"] = true; },
        [](const tavrin::OneOf<kinds::Column, kinds::Row, kinds::Progress> auto&) {},
        [](const tavrin::GapKind auto&) {});
    if (laidOut.lines.size() > 1) node["lines"] = laidOut.lines;
}

/// A person's ways to interact besides pressing, and the interactions that are going on.
void putInteraction(json& node, const View& view) {
    for (const auto& action : view.contextMenu) node["actions"].push_back(action.name);
    if (view.isFocusable) node["focusable"] = true;
    if (view.dragValue) node["draggable"] = true;
    if (view.onDrop) node["dropTarget"] = true;
    if (view.isHighlighted) node["highlighted"] = true;
}

/// The Accessibility role that the view's kind gives it.
std::string_view roleOf(const View& view) {
    using Role = std::string_view;
    return tavrin::visitKind(
        view, [](const kinds::Text&) { return Role("AXStaticText"); },
        [](const tavrin::OneOf<kinds::Button, kinds::ShortcutRecorder> auto&) { return Role("AXButton"); },
        [](const kinds::Checkbox&) { return Role("AXCheckBox"); },
        [](const kinds::Scroll&) { return Role("AXScrollArea"); },
        [](const tavrin::OneOf<kinds::Symbol, kinds::Icon> auto&) { return Role("AXImage"); },
        [](const kinds::Divider&) { return Role("AXSplitter"); },
        [](const kinds::Progress&) { return Role("AXBusyIndicator"); },
        [](const kinds::Spacer&) { return Role("AXGroup"); },
        [](const tavrin::StackKind auto&) { return Role("AXGroup"); });
}

bool isInTree(const LaidOutView& child) { return !tavrin::is<kinds::Spacer>(child.view); }

/// The place among all children of the n-th of those in the tree.
std::optional<std::size_t> childInTree(const LaidOutView& parent, std::size_t position) {
    for (std::size_t i = 0; i < parent.children.size(); ++i)
        if (isInTree(parent.children[i]) && position-- == 0) return i;
    return std::nullopt;
}

json nodeOf(const LaidOutView& laidOut, const LaidOutView* focused) {
    const auto& view = laidOut.view;
    json node{{"role", roleOf(view)}, {"frame", frameShape(laidOut.frame)}};
    put(node, "text", textOf(laidOut));
    if (!shownText(laidOut).empty())
        put(node, "label", view.accessibilityLabel);
    else if (!view.accessibilityLabel.empty())
        node["titled"] = false; // said, not drawn
    put(node, "help", view.help);
    putControl(node, view);
    putKind(node, laidOut);
    putInteraction(node, view);
    if (&laidOut == focused) node["focused"] = true;
    for (const auto& child : laidOut.children)
        if (isInTree(child)) node["children"].push_back(nodeOf(child, focused));
    return node;
}

json nodeOf(const MenuRow& row, bool isHighlighted) {
    json node{{"role", row.item.role}, {"frame", frameShape(row.frame)}};
    if (row.item.separator) node["separator"] = true;
    put(node, "text", row.item.title);
    put(node, "identifier", row.item.identifier);
    put(node, "key", keyEquivalentText(row.item));
    put(node, "value", row.item.mark);
    if (!row.item.picture.empty()) node["picture"] = tavrin::base64From(row.item.picture);
    if (!row.item.separator) node["enabled"] = row.item.enabled;
    if (!row.item.mark.empty()) node["checked"] = row.item.mark == "✓";
    if (isHighlighted) node["highlighted"] = true;
    if (!row.item.items.empty()) node["submenu"] = true;
    if (isChoosable(row.item)) node["actions"] = {"AXPress"};
    return node;
}

void putRows(json& tree, const Surface& menu) {
    for (std::size_t i = 0; i < menu.rows.size(); ++i)
        tree["children"].push_back(nodeOf(menu.rows[i], menu.highlightedRow == i));
    if (menu.rowsOffsetMax == 0) return;
    tree["value"] = number(menu.rowsOffset);
    tree["scrollMax"] = number(menu.rowsOffsetMax);
    tree["shownRows"] = frameShape(shownRows(menu));
}

json closeButton(const Surface& surface) {
    return {{"role", "AXButton"},
            {"text", closeButtonText},
            {"enabled", true},
            {"actions", {"AXPress"}},
            {"frame", frameShape(surface.closeButton())}};
}

} // namespace

std::optional<ViewPath> viewPathOf(const Surface& surface, const std::vector<std::size_t>& positions) {
    const bool isContent = !positions.empty() && positions.front() == (surface.hasTitleBar ? 1U : 0U);
    if (!isContent || surface.kind == SurfaceKind::Menu) return std::nullopt;
    ViewPath path;
    const auto* view = &surface.content;
    for (std::size_t i = 1; i < positions.size(); ++i) {
        const auto place = childInTree(*view, positions[i]);
        if (!place) return std::nullopt;
        path.push_back(*place);
        view = &view->children[*place];
    }
    return path;
}

bool isCloseButton(const Surface& surface, const std::vector<std::size_t>& positions) {
    return surface.hasTitleBar && positions == std::vector<std::size_t>{0};
}

std::string textOf(const LaidOutView& laidOut) {
    auto text = shownText(laidOut);
    return text.empty() ? laidOut.view.accessibilityLabel : text;
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
    const auto focus = isKey ? surface.focus.standsAt() : std::nullopt;
    const auto* focused = focus ? viewAt(surface.content, *focus) : nullptr;
    if (surface.kind != SurfaceKind::Menu) tree["children"].push_back(nodeOf(surface.content, focused));
    putRows(tree, surface);
    return tree;
}

} // namespace mac_model
