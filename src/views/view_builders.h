#pragma once

#include "views/view.h"

#include <functional>
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
};

inline View stack(ViewKind kind, std::vector<View> children, StackOptions options) {
    View view;
    view.kind = kind;
    view.children = std::move(children);
    view.spacing = options.spacing;
    view.padding = options.padding;
    view.width = options.width;
    view.isCentered = options.isCentered;
    return view;
}

inline View column(std::vector<View> children, StackOptions options = {}) {
    return stack(ViewKind::Column, std::move(children), options);
}

/// A row whose children are centred vertically.
inline View row(std::vector<View> children, StackOptions options = {}) {
    options.isCentered = true;
    return stack(ViewKind::Row, std::move(children), options);
}

inline View card(std::vector<View> children, StackOptions options = {}) {
    return stack(ViewKind::Card, std::move(children), options);
}

inline View text(std::string content, TextOptions options = {}) {
    View view;
    view.kind = ViewKind::Text;
    view.text = std::move(content);
    view.textStyle = options.style;
    view.tone = options.tone;
    view.isCentered = options.isCentered;
    return view;
}

inline View symbol(std::string name, double pointSize, Tone tone = Tone::Primary) {
    View view;
    view.kind = ViewKind::Symbol;
    view.symbol = std::move(name);
    view.pointSize = pointSize;
    view.tone = tone;
    return view;
}

inline View button(std::string title, std::function<void()> onPress, ButtonOptions options = {}) {
    View view;
    view.kind = ViewKind::Button;
    view.text = std::move(title);
    view.onPress = std::move(onPress);
    view.buttonStyle = options.style;
    view.symbol = std::move(options.symbol);
    view.help = std::move(options.help);
    return view;
}

inline View simple(ViewKind kind) {
    View view;
    view.kind = kind;
    return view;
}

inline View progress() { return simple(ViewKind::Progress); }

inline View divider() { return simple(ViewKind::Divider); }

inline View spacer() { return simple(ViewKind::Spacer); }

} // namespace tavrin
