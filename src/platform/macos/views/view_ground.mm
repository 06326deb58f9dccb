#include "platform/macos/views/view_ground.h"

namespace tavrin::macos {

namespace {

void drawRounded(NSRect bounds, NSColor* fill, NSColor* line, double lineWidth) {
    const NSRect middleOfLine = NSInsetRect(bounds, lineWidth / 2, lineWidth / 2);
    NSBezierPath* path = [NSBezierPath bezierPathWithRoundedRect:middleOfLine
                                                         xRadius:groundRadius
                                                         yRadius:groundRadius];
    path.lineWidth = lineWidth;
    [fill setFill];
    [path fill];
    [line setStroke];
    [path stroke];
}

} // namespace

void drawGround(const View& view, NSRect bounds) {
    visitKind(
        view,
        [=](const kinds::Divider&) {
            [NSColor.separatorColor setFill];
            [NSBezierPath fillRect:bounds];
        },
        [=](const kinds::Card&) {
            NSColor* fill = [NSColor.labelColor colorWithAlphaComponent:0.05];
            drawRounded(bounds, fill, NSColor.separatorColor, 0.5);
        },
        [](const OneOf<kinds::Column, kinds::Row, kinds::Scroll, kinds::Spacer> auto&) {},
        [](const ControlKind auto&) {}, [](const DisplayKind auto&) {});
    if (view.isHighlighted) {
        NSColor* accent = NSColor.controlAccentColor;
        drawRounded(bounds, [accent colorWithAlphaComponent:0.18], accent, 1.5);
    }
}

} // namespace tavrin::macos
