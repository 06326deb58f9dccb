#include "screen/surface_keys.h"

#include "screen/keyboard_focus.h"
#include "vocabulary/vocabulary.h"

#include <algorithm>

namespace mac_model {

namespace {

/// A key that acts on something scrolls it into sight, too.
bool performKeyAction(Surface& surface, const ViewPath& focused, std::string_view key) {
    for (auto path = focused;; path.pop_back()) {
        const auto& actions = viewAt(surface.content, path)->view.keyActions;
        const auto found = std::ranges::find(actions, key, &KeyAction::key);
        if (found != actions.end() && found->perform && surface.deliver) {
            revealFocus(surface);
            surface.deliver(found->perform);
            return true;
        }
        if (path.empty()) return false;
    }
}

bool performFocused(Surface& surface, const ViewPath& focused) {
    const auto& view = *viewAt(surface.content, focused);
    if (!isControl(view.view)) return false;
    revealFocus(surface);
    perform(surface, view);
    return true;
}

bool pressDefaultButton(const Surface& surface) {
    const auto* button = defaultButton(surface.content);
    if (button) perform(surface, *button);
    return button != nullptr;
}

} // namespace

void perform(const Surface& surface, const LaidOutView& control) {
    if (control.view.isEnabled && control.view.onPress && surface.deliver)
        surface.deliver(control.view.onPress);
}

bool pressKeyOn(Surface& surface, std::string_view key, const std::vector<Modifier>& modifiers) {
    if (key == "tab" && modifiers == std::vector{Modifier::Shift})
        return moveFocus(surface, FocusStep::Previous);
    if (!modifiers.empty()) return false;
    const auto focused = surface.focus.standsAt();
    if (performKeyAction(surface, focused.value_or(ViewPath{}), key)) return true;
    if (key == "tab") return moveFocus(surface, FocusStep::Next);
    if (key == "down") return moveFocusInList(surface, FocusStep::Next);
    if (key == "up") return moveFocusInList(surface, FocusStep::Previous);
    if (key == "space") return focused && performFocused(surface, *focused);
    if (key == "return") return pressDefaultButton(surface) || (focused && performFocused(surface, *focused));
    return false;
}

} // namespace mac_model
