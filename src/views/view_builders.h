#pragma once

#include "views/view.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tavrin {

struct StackOptions {
    double spacing = 8;
    double padding = 0;
    std::optional<double> width = std::nullopt;
    bool isCentered = false;
};

struct TextOptions {
    TextStyle style = TextStyle::Body;
    Tone tone = Tone::Primary;
    bool isCentered = false;
};

struct ButtonOptions {
    ButtonStyle style = ButtonStyle::Bordered;
    std::string symbol = {};
    std::string help = {};
    bool isDefault = false;
    bool actsWhenPressed = false;
};

inline View simple(ViewKind kind) {
    View view;
    view.kind = std::move(kind);
    return view;
}

template <StackKind Kind>
View stack(Kind kind, std::vector<View> children, StackOptions options) {
    kind.spacing = options.spacing;
    kind.isCentered = options.isCentered;
    auto view = simple(kind);
    view.children = std::move(children);
    view.padding = options.padding;
    view.width = options.width;
    return view;
}

inline View column(std::vector<View> children, StackOptions options = {}) {
    return stack(kinds::Column{}, std::move(children), options);
}

/// A row whose children are centred vertically.
inline View row(std::vector<View> children, StackOptions options = {}) {
    options.isCentered = true;
    return stack(kinds::Row{}, std::move(children), options);
}

inline View card(std::vector<View> children, StackOptions options = {}) {
    return stack(kinds::Card{}, std::move(children), options);
}

inline View scroll(View content, double heightMax) {
    auto view = simple(kinds::Scroll{});
    view.children.push_back(std::move(content));
    view.height = heightMax;
    return view;
}

inline View text(std::string content, TextOptions options = {}) {
    return simple(kinds::Text{.text = std::move(content),
                              .style = options.style,
                              .tone = options.tone,
                              .isCentered = options.isCentered});
}

inline View symbol(std::string name, double pointSize, Tone tone = Tone::Primary) {
    return simple(kinds::Symbol{.name = std::move(name), .pointSize = pointSize, .tone = tone});
}

inline View icon(IconOfApplication application, double side) {
    auto view = simple(kinds::Icon{std::move(application)});
    view.width = view.height = side;
    return view;
}

inline View button(std::string title, std::function<void()> onPress, ButtonOptions options = {}) {
    auto view = simple(kinds::Button{.title = std::move(title),
                                     .symbol = std::move(options.symbol),
                                     .style = options.style,
                                     .isDefault = options.isDefault,
                                     .actsWhenPressed = options.actsWhenPressed});
    view.onPress = std::move(onPress);
    view.help = std::move(options.help);
    return view;
}

inline View checkbox(std::string title, bool isChecked, std::function<void()> onPress) {
    auto view = simple(kinds::Checkbox{.title = std::move(title), .isChecked = isChecked});
    view.onPress = std::move(onPress);
    return view;
}

inline View shortcutRecorder(std::shared_ptr<const RecorderButtonMaker> maker) {
    return simple(kinds::ShortcutRecorder{std::move(maker)});
}

inline View progress() { return simple(kinds::Progress{}); }

inline View divider() { return simple(kinds::Divider{}); }

inline View spacer() { return simple(kinds::Spacer{}); }

} // namespace tavrin
