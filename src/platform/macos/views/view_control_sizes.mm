#include "platform/macos/views/view_control_sizes.h"

#include "platform/macos/views/view_controls.h"
#include "views/view_builders.h"

#include <algorithm>
#include <cmath>

namespace tavrin::macos {

namespace {

constexpr Size smallPicture{16, 16};  // an icon, or the wheel
constexpr double recorderWidth = 150; // of a recorder that names no width: its titles come later
constexpr double narrowestText = 24;  // a narrower offer counts as this
constexpr std::size_t linesKeptMax = 2000;

Size wholePoints(NSSize size) { return {std::ceil(size.width), std::ceil(size.height)}; }

/// The size within which the text is seen; the label's frame is a little wider.
Size sizeOfLabel(NSTextField* label, double width) {
    const NSEdgeInsets insets = label.alignmentRectInsets;
    const double aside = insets.left + insets.right;
    const double beyond = insets.top + insets.bottom;
    const NSSize size = [label.cell cellSizeForBounds:NSMakeRect(0, 0, width + aside, widthUnlimited)];
    return wholePoints(NSMakeSize(size.width - aside, size.height - beyond));
}

} // namespace

NSView* MacControlSizes::dressed(const View& control) const {
    NSView* __strong& view = controls_[control.kind.index()];
    if (!view) view = makeControl(control, nil);
    dressControl(view, control);
    return view;
}

Size MacControlSizes::sizeOfText(const View& view, const kinds::Text& text, double width) const {
    if (lines_.size() >= linesKeptMax) lines_.clear();
    auto [line, isNew] = lines_.try_emplace({text.style, text.text});
    if (isNew) line->second = sizeOfLabel(static_cast<NSTextField*>(dressed(view)), widthUnlimited);
    if (line->second.width <= width) return line->second;
    return sizeOfLabel(static_cast<NSTextField*>(dressed(view)), std::max(width, narrowestText));
}

Size MacControlSizes::sizeOf(const View& control, double width) const {
    return visitKind(
        control, [&](const kinds::Text& text) { return sizeOfText(control, text, width); },
        [&](const kinds::Symbol&) {
            return wholePoints(static_cast<NSImageView*>(dressed(control)).image.size);
        },
        [&](const OneOf<kinds::Button, kinds::Checkbox> auto&) {
            return wholePoints(dressed(control).intrinsicContentSize);
        },
        [&](const kinds::ShortcutRecorder&) {
            return Size{recorderWidth, std::ceil(dressed(button("", nullptr)).intrinsicContentSize.height)};
        },
        [](const OneOf<kinds::Icon, kinds::Progress> auto&) { return smallPicture; },
        [](const StackKind auto&) { return Size{}; }, [](const kinds::Scroll&) { return Size{}; },
        [](const GapKind auto&) { return Size{}; });
}

} // namespace tavrin::macos
