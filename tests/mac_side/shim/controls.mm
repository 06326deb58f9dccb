// What views and controls of AppKit have and GNUstep lacks.
#include "hung.h"

#import <AppKit/AppKit.h>

@implementation NSView (TavrinShim)

- (NSEdgeInsets)alignmentRectInsets {
    return {0, 0, 0, 0};
}

- (NSRect)frameForAlignmentRect:(NSRect)rect {
    return rect;
}

- (NSSize)intrinsicContentSize {
    return [self respondsToSelector:@selector(cell)] ? [[(NSControl*)self cell] cellSize]
                                                     : NSMakeSize(-1, -1);
}
HUNG_BOOL(clipsToBounds, setClipsToBounds)
HUNG_BOOL(wantsLayer, setWantsLayer)
HUNG(NSString*, identifier, setIdentifier)

- (instancetype)animator {
    return self;
}

@end
@implementation NSButton (TavrinShim)

+ (instancetype)buttonWithTitle:(NSString*)title target:(id)target action:(SEL)action {
    NSButton* button = [[self alloc] initWithFrame:NSZeroRect];
    button.title = title;
    button.target = target;
    button.action = action;
    [button setBezelStyle:NSRoundedBezelStyle];
    return button;
}

+ (instancetype)checkboxWithTitle:(NSString*)title target:(id)target action:(SEL)action {
    NSButton* button = [self buttonWithTitle:title target:target action:action];
    [button setButtonType:NSSwitchButton];
    return button;
}
HUNG(NSColor*, bezelColor, setBezelColor)
HUNG(NSColor*, contentTintColor, setContentTintColor)
HUNG_BOOL(imageHugsTitle, setImageHugsTitle)
@end
@implementation NSImageView (TavrinShim)
HUNG(NSColor*, contentTintColor, setContentTintColor)
@end
@implementation NSTextField (TavrinShim)

+ (instancetype)wrappingLabelWithString:(NSString*)text {
    NSTextField* label = [[self alloc] initWithFrame:NSZeroRect];
    label.stringValue = text;
    [label setEditable:NO];
    [label setBezeled:NO];
    [label setDrawsBackground:NO];
    [[label cell] setWraps:YES];
    return label;
}

@end
@implementation NSTextFieldCell (TavrinShim)

- (NSSize)cellSizeForBounds:(NSRect)bounds { // GNUstep's looks at no bounds
    const NSSize size =
        [self.attributedStringValue boundingRectWithSize:bounds.size
                                                 options:NSStringDrawingUsesLineFragmentOrigin]
            .size;
    return NSMakeSize(size.width + 4, size.height);
}

@end
@implementation NSScrollView (TavrinShim)

- (NSInteger)scrollerStyle {
    return [tavrinHung(self, "style") integerValue];
}

- (void)setScrollerStyle:(NSInteger)style {
    tavrinHang(self, "style", @(style));
    [self setAutohidesScrollers:NO]; // GNUstep's would show a horizontal one as well
    [self setHasVerticalScroller:style != NSScrollerStyleOverlay];
}
HUNG_BOOL(automaticallyAdjustsContentInsets, setAutomaticallyAdjustsContentInsets)
@end
@implementation NSClipView (TavrinShim)

- (NSRect)constrainBoundsRect:(NSRect)bounds {
    bounds.origin = [self constrainScrollPoint:bounds.origin];
    return bounds;
}

@end
