#include "platform/macos/views/view_drag_preview.h"

#include "platform/macos/support/conversions.h"
#include "platform/macos/views/view_style.h"

#include <algorithm>
#include <cmath>
#include <variant>

namespace tavrin::macos {

namespace {

constexpr double padding = DragPreview::padding;
constexpr double pictureSide = DragPreview::pictureSide;

/// A symbol is drawn in a colour of its own: outside of a view nothing tints it.
NSImage* tintedSymbol(const kinds::Symbol& symbol) {
    auto* tint = [NSImageSymbolConfiguration configurationWithHierarchicalColor:NSColor.labelColor];
    return [symbolImage(symbol.name, pictureSide * 0.8) imageWithSymbolConfiguration:tint];
}

NSImage* pictureOf(const DragPreview& preview) {
    if (const auto* icon = std::get_if<kinds::Icon>(&preview.picture))
        return iconImage(icon->application.value_or(IconOfApplication{}));
    const auto* symbol = std::get_if<kinds::Symbol>(&preview.picture);
    return symbol ? tintedSymbol(*symbol) : nil;
}

/// Fitted into the square at the preview's left, in its own proportions.
NSRect pictureFrame(NSSize size, double height) {
    const double scale = pictureSide / std::max({size.width, size.height, 1.0});
    const NSSize fitted = NSMakeSize(size.width * scale, size.height * scale);
    return NSMakeRect(padding + (pictureSide - fitted.width) / 2, (height - fitted.height) / 2, fitted.width,
                      fitted.height);
}

} // namespace

NSImage* imageOf(const DragPreview& preview) {
    NSImage* picture = pictureOf(preview);
    NSString* label = localized(preview.label);
    NSDictionary* attributes = @{
        NSFontAttributeName : fontFor(TextStyle::Body),
        NSForegroundColorAttributeName : NSColor.labelColor
    };
    const NSSize text = [label sizeWithAttributes:attributes];
    const double labelX = padding + (picture ? pictureSide + DragPreview::spacing : 0);
    const double width = std::ceil(labelX + std::min(text.width, DragPreview::labelWidthMax) + padding);
    const double height = std::ceil(std::max(text.height, pictureSide) + 2 * padding);
    return [NSImage imageWithSize:NSMakeSize(width, height)
                          flipped:NO
                   drawingHandler:^BOOL(NSRect bounds) {
                       [[NSColor.windowBackgroundColor colorWithAlphaComponent:0.85] setFill];
                       [[NSBezierPath bezierPathWithRoundedRect:bounds xRadius:8 yRadius:8] fill];
                       [picture drawInRect:pictureFrame(picture.size, height)];
                       [label drawAtPoint:NSMakePoint(labelX, (height - text.height) / 2)
                           withAttributes:attributes];
                       return YES;
                   }];
}

} // namespace tavrin::macos
