#include "views/control_sizes.h"

#include "views/text_metrics.h"
#include "views/view_layout.h"

#include <algorithm>
#include <cmath>

namespace mac_model {

namespace {

using tavrin::ButtonStyle;
using tavrin::Size;
using tavrin::View;
using tavrin::ViewKind;

constexpr double iconSide = 16;
constexpr double progressSide = 16;
constexpr double buttonSymbolGap = 4;
constexpr Size recorderSize{150, 24}; // its titles come later, so the view's width counts

Size sizeOfText(const View& text, double width) {
    const auto lines = wrapped(text.text, text.textStyle, width);
    double widest = 0;
    for (const auto& line : lines) widest = std::max(widest, widthOf(line, text.textStyle));
    return {std::ceil(widest), static_cast<double>(lines.size()) * lineHeightOf(text.textStyle)};
}

Size sizeOfSymbol(const View& symbol) {
    const double pointSize = symbol.pointSize > 0 ? symbol.pointSize : fontSizeOf(symbol.textStyle);
    const double side = std::ceil(pointSize * 1.25);
    return {side, side};
}

Size sizeOfLabel(const View& button) {
    const Size text = button.text.empty() ? Size{} : sizeOfText(button, tavrin::widthUnlimited);
    if (button.symbol.empty()) return text;
    const Size symbol = sizeOfSymbol(button);
    const double gap = button.text.empty() ? 0 : buttonSymbolGap;
    return {symbol.width + gap + text.width, std::max(symbol.height, text.height)};
}

Size sizeOfButton(const View& button) {
    const Size label = sizeOfLabel(button);
    if (button.buttonStyle == ButtonStyle::Plain) return label;
    const bool isProminent = button.buttonStyle == ButtonStyle::Prominent;
    return {label.width + (isProminent ? 32 : 24), label.height + (isProminent ? 12 : 8)};
}

Size sizeOfCheckbox(const View& checkbox, double width) {
    if (checkbox.text.empty()) return {checkboxBoxWidth, checkboxBoxWidth};
    const Size text = sizeOfText(checkbox, textWidthOf(checkbox, width));
    return {checkboxBoxWidth + checkboxGap + text.width, std::max(text.height, checkboxBoxWidth)};
}

} // namespace

double textWidthOf(const View& view, double width) {
    return view.kind == ViewKind::Checkbox ? width - checkboxBoxWidth - checkboxGap : width;
}

Size sizeOfControl(const View& view, double width) {
    switch (view.kind) {
    case ViewKind::Text:
        return sizeOfText(view, width);
    case ViewKind::Symbol:
        return sizeOfSymbol(view);
    case ViewKind::Icon:
        return {iconSide, iconSide};
    case ViewKind::Button:
        return sizeOfButton(view);
    case ViewKind::Checkbox:
        return sizeOfCheckbox(view, width);
    case ViewKind::ShortcutRecorder:
        return recorderSize;
    case ViewKind::Progress:
        return {progressSide, progressSide};
    default:
        return {};
    }
}

} // namespace mac_model
