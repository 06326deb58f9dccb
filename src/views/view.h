#pragma once

#include "views/view_kinds.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace tavrin {

struct ViewAction {
    std::string name;
    std::function<void()> perform;
};

/// A key that does something while the view or one inside it has the keyboard focus, and for the outermost
/// view also while none has: "left", "right", "space", "return", "delete", "escape".
struct KeyAction {
    std::string key;
    std::function<void()> perform;
};

// What views of every kind have, by concern.

struct ViewFrame {
    std::optional<double> width;
    std::optional<double> height; // Scroll: the largest height
    double padding = 0;           // around children, or around a control's text
};

struct SpokenTexts {
    std::string accessibilityLabel;
    std::string help;
};

struct Interaction {
    bool isEnabled = true;
    std::function<void()> onPress;
    std::vector<ViewAction> contextMenu; // also the view's named Accessibility actions

    /// Tab reaches the view, and up and down move between the focusable views of a column.
    bool isFocusable = false;
    std::vector<KeyAction> keyActions;

    /// What a control stays with whatever title and at whatever place: the keyboard focus follows it there.
    /// Without one it is known by its place.
    std::string identity;
};

struct DragSource {
    /// What a drag of this view carries; none: it can't be dragged.
    std::optional<std::string> dragValue;
};

struct DropTarget {
    std::function<void(const std::string& dragValue)> onDrop; // takes what is dropped on the view
    std::function<void(bool isOver)> onDragOver;              // a drag has come over the view, or left it
    bool isHighlighted = false;
};

/// A value that says what to show. Renderers on all platforms show the same tree; nodes that keep their kind
/// and place from one tree to the next keep focus and scrolling. Sizes are points. Callbacks run on the main
/// thread.
struct View : ViewFrame, SpokenTexts, Interaction, DragSource, DropTarget {
    ViewKind kind;
    std::vector<View> children;
};

template <class Kind>
bool is(const View& view) {
    return std::holds_alternative<Kind>(view.kind);
}

inline bool isSameKind(const View& left, const View& right) {
    return left.kind.index() == right.kind.index();
}

template <class... Handlers>
struct KindVisitor : Handlers... {
    using Handlers::operator()...;
};

/// Calls the one handler that takes the view's kind.
template <class... Handlers>
decltype(auto) visitKind(const View& view, Handlers... handlers) {
    return std::visit(KindVisitor<Handlers...>{std::move(handlers)...}, view.kind);
}

/// The words that the view itself shows. A recorder's are its button's to know.
inline std::string shownText(const View& view) {
    return visitKind(
        view, [](const kinds::Text& text) { return text.text; },
        [](const OneOf<kinds::Button, kinds::Checkbox> auto& control) { return control.title; },
        [](const OneOf<kinds::Symbol, kinds::Icon, kinds::Progress, kinds::ShortcutRecorder> auto&) {
            return std::string{};
        },
        [](const StackKind auto&) { return std::string{}; },
        [](const kinds::Scroll&) { return std::string{}; },
        [](const GapKind auto&) { return std::string{}; });
}

/// Whether the view is a control of the system.
inline bool isSystemControl(const View& view) {
    return visitKind(
        view, [](const ControlKind auto&) { return true; }, [](const DisplayKind auto&) { return false; },
        [](const StackKind auto&) { return false; }, [](const kinds::Scroll&) { return false; },
        [](const GapKind auto&) { return false; });
}

/// Whether a press on it does something, or would if it were enabled.
inline bool isControl(const View& view) { return isSystemControl(view) || view.onPress != nullptr; }

} // namespace tavrin
