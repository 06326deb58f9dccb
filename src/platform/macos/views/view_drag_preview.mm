#include "platform/macos/views/view_drag_preview.h"

#include "platform/macos/support/conversions.h"
#include "platform/macos/views/view_style.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace tavrin::macos {

namespace {

constexpr double padding = 6;
constexpr double spacing = 8;
constexpr double pictureSide = 20;
constexpr double labelWidthMax = 280;

const View* firstOf(const View& view, ViewKind kind, ViewKind orKind) {
    if (view.kind == kind || view.kind == orKind) return &view;
    for (const auto& child : view.children)
        if (const View* found = firstOf(child, kind, orKind)) return found;
    return nullptr;
}

std::string labelOf(const View& dragged) {
    if (!dragged.accessibilityLabel.empty()) return dragged.accessibilityLabel;
    const View* text = firstOf(dragged, ViewKind::Text, ViewKind::Button);
    return text ? text->text : std::string{};
}

/// A symbol is drawn in a colour of its own: outside of a view nothing tints it.
NSImage* pictureOf(const View& dragged) {
    const View* picture = firstOf(dragged, ViewKind::Icon, ViewKind::Symbol);
    if (!picture) return nil;
    if (picture->icon) return iconImage(*picture->icon);
    auto* tint = [NSImageSymbolConfiguration configurationWithHierarchicalColor:NSColor.labelColor];
    return [symbolImage(picture->symbol, pictureSide * 0.8) imageWithSymbolConfiguration:tint];
}

/// Fitted into the square at the preview's left, in its own proportions.
NSRect pictureFrame(NSSize size, double height) {
    const double scale = pictureSide / std::max({size.width, size.height, 1.0});
    const NSSize fitted = NSMakeSize(size.width * scale, size.height * scale);
    return NSMakeRect(padding + (pictureSide - fitted.width) / 2, (height - fitted.height) / 2, fitted.width,
                      fitted.height);
}

} // namespace

NSImage* dragPreview(const View& dragged) {
    NSImage* picture = pictureOf(dragged);
    NSString* label = localized(labelOf(dragged));
    NSDictionary* attributes = @{
        NSFontAttributeName : fontFor(TextStyle::Body),
        NSForegroundColorAttributeName : NSColor.labelColor
    };
    const NSSize text = [label sizeWithAttributes:attributes];
    const double labelX = padding + (picture ? pictureSide + spacing : 0);
    const double width = std::ceil(labelX + std::min(text.width, labelWidthMax) + padding);
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
