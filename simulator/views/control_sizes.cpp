#include "views/control_sizes.h"

#include "views/text_metrics.h"
#include "views/view_layout.h"

#include <algorithm>
#include <cmath>

namespace mac_model {

namespace {

namespace kinds = tavrin::kinds;

constexpr double iconSide = 16;
constexpr double progressSide = 16;
constexpr double buttonSymbolGap = 4;
constexpr Size recorderSize{150, 24}; // its titles come later, so the view's width counts

Size sizeOfText(const std::string& text, TextStyle style, double width) {
    const auto lines = wrapped(text, style, width);
    double widest = 0;
    for (const auto& line : lines) widest = std::max(widest, widthOf(line, style));
    return {std::ceil(widest), static_cast<double>(lines.size()) * lineHeightOf(style)};
}

Size sizeOfSymbol(double pointSize) {
    const double size = pointSize > 0 ? pointSize : fontSizeOf(TextStyle::Body);
    const double side = std::ceil(size * 1.25);
    return {side, side};
}

Size sizeOfLabel(const kinds::Button& button) {
    const bool isNamed = !button.title.empty();
    const Size text = isNamed ? sizeOfText(button.title, TextStyle::Body, tavrin::widthUnlimited) : Size{};
    if (button.symbol.empty()) return text;
    const Size symbol = sizeOfSymbol(0);
    const double gap = isNamed ? buttonSymbolGap : 0;
    return {symbol.width + gap + text.width, std::max(symbol.height, text.height)};
}

Size sizeOfButton(const kinds::Button& button) {
    const Size label = sizeOfLabel(button);
    if (button.style == ButtonStyle::Plain) return label;
    const bool isProminent = button.style == ButtonStyle::Prominent;
    return {label.width + (isProminent ? 32 : 24), label.height + (isProminent ? 12 : 8)};
}

double titleWidthOf(double checkboxWidth) { return checkboxWidth - checkboxBoxWidth - checkboxGap; }

Size sizeOfCheckbox(const kinds::Checkbox& checkbox, double width) {
    if (checkbox.title.empty()) return {checkboxBoxWidth, checkboxBoxWidth};
    const Size text = sizeOfText(checkbox.title, TextStyle::Body, titleWidthOf(width));
    return {checkboxBoxWidth + checkboxGap + text.width, std::max(text.height, checkboxBoxWidth)};
}

std::vector<std::string> linesOf(const std::string& text, TextStyle style, double width) {
    return text.empty() ? std::vector<std::string>{} : wrapped(text, style, width);
}

} // namespace

std::vector<std::string> linesOfControl(const View& view, double width) {
    using Lines = std::vector<std::string>;
    return tavrin::visitKind(
        view, [&](const kinds::Text& text) { return linesOf(text.text, text.style, width); },
        [&](const kinds::Checkbox& box) { return linesOf(box.title, TextStyle::Body, titleWidthOf(width)); },
        [](const tavrin::OneOf<kinds::Button, kinds::ShortcutRecorder> auto&) { return Lines{}; },
        [](const tavrin::OneOf<kinds::Symbol, kinds::Icon, kinds::Progress> auto&) { return Lines{}; },
        [](const tavrin::StackKind auto&) { return Lines{}; }, [](const kinds::Scroll&) { return Lines{}; },
        [](const tavrin::GapKind auto&) { return Lines{}; });
}

Size sizeOfControl(const View& view, double width) {
    return tavrin::visitKind(
        view, [&](const kinds::Text& text) { return sizeOfText(text.text, text.style, width); },
        [](const kinds::Symbol& symbol) { return sizeOfSymbol(symbol.pointSize); },
        [](const kinds::Icon&) { return Size{iconSide, iconSide}; },
        [](const kinds::Button& button) { return sizeOfButton(button); },
        [&](const kinds::Checkbox& checkbox) { return sizeOfCheckbox(checkbox, width); },
        [](const kinds::ShortcutRecorder&) { return recorderSize; },
        [](const kinds::Progress&) { return Size{progressSide, progressSide}; },
        [](const tavrin::StackKind auto&) { return Size{}; }, [](const kinds::Scroll&) { return Size{}; },
        [](const tavrin::GapKind auto&) { return Size{}; });
}

} // namespace mac_model
