#include "input/typing.h"

#include "screen/surface_keys.h"

#include <string>
#include <utility>

namespace mac_model {

bool Typing::pressKey(std::string_view key, const std::vector<Modifier>& modifiers) {
    const auto stroke = keyboard_.strokeOf(key, modifiers);
    if (stroke && hotKeys_.press(*stroke)) return true;
    if (stroke && showToMonitors(key, modifiers, *stroke)) return true;
    return pressKeyInFront(key, modifiers);
}

/// The monitors run in the program's main loop; a key that they pass on goes on its way after that.
bool Typing::showToMonitors(std::string_view key, const std::vector<Modifier>& modifiers,
                            const KeyPress& stroke) {
    const auto& connection = program_.connection();
    const auto* surface = surfaces_.key();
    const bool isForProgram = connection && surface && surface->owner == connection->process();
    if (!isForProgram || menus_.isOpen() || !keyboard_.monitors.hasSubscribers()) return false;
    connection->post([this, key = std::string(key), modifiers, stroke] {
        if (keyboard_.showToMonitors(stroke) == KeyHandling::PassedOn) pressKeyInFront(key, modifiers);
    });
    return true;
}

bool Typing::pressKeyInFront(std::string_view key, const std::vector<Modifier>& modifiers) {
    if (menus_.isOpen()) return pressKeyInMenu(key, modifiers);
    auto* surface = surfaces_.key();
    if (surface && pressKeyOn(*surface, key, modifiers)) return true;
    if (modifiers.empty() && key == "escape") return closeKeySurface(key);
    if (modifiers == std::vector{Modifier::Command} && key == "w" && closeKeySurface(key)) return true;
    const bool isKept = surface && surface->kind == SurfaceKind::Alert;
    return !isKept && applicationMenus_.chooseByKey(key, modifiers);
}

bool Typing::pressKeyInMenu(std::string_view key, const std::vector<Modifier>& modifiers) {
    if (!modifiers.empty()) return menus_.chooseByKey(key, modifiers);
    if (key == "escape")
        menus_.close();
    else if (key == "down")
        menus_.moveHighlight(1);
    else if (key == "up")
        menus_.moveHighlight(-1);
    else if (key == "home" || key == "end")
        menus_.highlightFromEdge(key == "home" ? 1 : -1);
    else if (key == "pageUp" || key == "pageDown")
        menus_.moveHighlightByPage(key == "pageUp" ? -1 : 1);
    else if (key == "left")
        menus_.closeInnermost();
    else if (key == "right")
        menus_.openHighlighted();
    else if (key == "return" || key == "space")
        menus_.pickHighlighted();
    else
        return false;
    return true;
}

/// Escape closes a surface that any press outside would close, Command-W one that has a close button.
bool Typing::closeKeySurface(std::string_view key) {
    const auto* surface = surfaces_.key();
    if (!surface) return false;
    const bool closes =
        key == "escape" ? surface->outsidePress == OutsidePress::Closes : surface->hasTitleBar;
    if (closes) surfaces_.dismiss(surface->identifier);
    return closes;
}

} // namespace mac_model
