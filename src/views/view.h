#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavrin {

struct RecorderButtonMaker;

/// A picture that the platform holds, such as an application's icon.
struct IconOfApplication {
    std::string bundleIdentifier;

    bool operator==(const IconOfApplication&) const = default;
};

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

enum class ViewKind {
    Column, // children from top to bottom
    Row,    // children from left to right
    Scroll, // one child, taller than the room it has
    Text,
    Symbol, // a symbol of the system, named by `symbol`
    Icon,   // an application's icon
    Button,
    Checkbox,
    Divider,
    Spacer,           // takes what room is left in its row or column
    Progress,         // a turning wheel
    ShortcutRecorder, // a push button whose title and doings are those of `recorder`
    Card,             // a column on a filled, rounded ground
};

enum class TextStyle { Body, Title, Heading, Caption };
enum class Tone { Primary, Secondary, Accent, Positive, Warning };
enum class ButtonStyle { Bordered, Prominent, Plain };

/// A value that says what to show. Renderers on all platforms show the same tree; nodes that keep their kind
/// and place from one tree to the next keep focus and scrolling. Sizes are points. Callbacks run on the main
/// thread.
struct View {
    ViewKind kind = ViewKind::Column;
    std::vector<View> children;

    std::string text;   // Text, Button, Checkbox
    std::string symbol; // Symbol, Button
    std::optional<IconOfApplication> icon;
    TextStyle textStyle = TextStyle::Body;
    Tone tone = Tone::Primary;
    ButtonStyle buttonStyle = ButtonStyle::Bordered;

    double spacing = 8; // between children
    double padding = 0; // around children, or around a control's text
    std::optional<double> width;
    std::optional<double> height; // Scroll: the largest height
    double pointSize = 0;         // Symbol: 0 is the size of body text
    bool isCentered = false;      // text and children, across the stack's direction

    /// ShortcutRecorder: renderers keep the button that it makes for as long as the view keeps its place.
    std::shared_ptr<const RecorderButtonMaker> recorder;

    bool isEnabled = true;
    bool isChecked = false;
    bool isDefaultButton = false; // pressed by Return

    std::string accessibilityLabel;
    std::string help;
    std::function<void()> onPress;
    std::vector<ViewAction> contextMenu; // also the view's named Accessibility actions

    /// Tab reaches the view, and up and down move between the focusable views of a column.
    bool isFocusable = false;
    std::vector<KeyAction> keyActions;

    /// What a drag of this view carries; none: it can't be dragged. The preview shows its icon and its label.
    std::optional<std::string> dragValue;
    std::function<void(const std::string& dragValue)> onDrop; // takes what is dropped on the view
    std::function<void(bool isOver)> onDragOver;              // a drag has come over the view, or left it
    bool isHighlighted = false;
};

} // namespace tavrin
