#pragma once

#include <concepts>
#include <memory>
#include <optional>
#include <string>
#include <variant>

namespace tavrin {

struct RecorderButtonMaker;

/// A picture that the platform holds, such as an application's icon.
struct IconOfApplication {
    std::string bundleIdentifier;

    bool operator==(const IconOfApplication&) const = default;
};

enum class TextStyle { Body, Title, Heading, Caption };
enum class Tone { Primary, Secondary, Accent, Positive, Warning };
enum class ButtonStyle { Bordered, Prominent, Plain };

/// What a view can be, each kind with the fields that only it has.
namespace kinds {

struct Stacking {
    double spacing = 8;      // points between children
    bool isCentered = false; // children, across the stack's direction
};

/// Children from top to bottom.
struct Column : Stacking {};

/// Children from left to right.
struct Row : Stacking {};

/// A column on a filled, rounded ground.
struct Card : Stacking {};

/// One child, taller than the room it has. The view's height is the largest that it takes.
struct Scroll {};

struct Text {
    std::string text;
    TextStyle style = TextStyle::Body;
    Tone tone = Tone::Primary;
    bool isCentered = false;
};

/// A symbol of the system.
struct Symbol {
    std::string name;
    double pointSize = 0; // 0 is the size of body text
    Tone tone = Tone::Primary;
};

struct Icon {
    std::optional<IconOfApplication> application; // none: a stand-in
};

struct Button {
    std::string title;
    std::string symbol;
    ButtonStyle style = ButtonStyle::Bordered;
    bool isDefault = false;       // pressed by Return
    bool actsWhenPressed = false; // by the mouse: not only when it is let go of
};

struct Checkbox {
    std::string title;
    bool isChecked = false;
};

struct Divider {};

/// Takes what room is left in its row or column.
struct Spacer {};

/// A turning wheel.
struct Progress {};

/// A push button whose title and doings are those of the recorder that `maker` makes. Renderers keep the
/// button for as long as the view keeps its place.
struct ShortcutRecorder {
    std::shared_ptr<const RecorderButtonMaker> maker;
};

} // namespace kinds

using ViewKind = std::variant<kinds::Column, kinds::Row, kinds::Scroll, kinds::Text, kinds::Symbol,
                              kinds::Icon, kinds::Button, kinds::Checkbox, kinds::Divider, kinds::Spacer,
                              kinds::Progress, kinds::ShortcutRecorder, kinds::Card>;

// Visitors name every kind, alone or in one of these lists: a new kind doesn't compile until each of them has
// said what it does with it.

template <class Kind, class... Kinds>
concept OneOf = (std::same_as<Kind, Kinds> || ...);

template <class Kind>
concept StackKind = OneOf<Kind, kinds::Column, kinds::Row, kinds::Card>;

/// A control of the system, which takes presses and keys by itself.
template <class Kind>
concept ControlKind = OneOf<Kind, kinds::Button, kinds::Checkbox, kinds::ShortcutRecorder>;

/// It only shows, and lets presses and keys go by.
template <class Kind>
concept DisplayKind = OneOf<Kind, kinds::Text, kinds::Symbol, kinds::Icon, kinds::Progress>;

/// Room between others, at most with a line.
template <class Kind>
concept GapKind = OneOf<Kind, kinds::Divider, kinds::Spacer>;

} // namespace tavrin
