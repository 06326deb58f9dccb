// Fonts, colours, symbols and pictures that AppKit has and GNUstep lacks. A symbol is drawn as a box with the
// first letter of its name.
#include "answering_mac.h"
#include "hung.h"

#import <AppKit/AppKit.h>
#include <cmath>

const NSFontTextStyle NSFontTextStyleBody = @"body";
const NSFontTextStyle NSFontTextStyleTitle1 = @"title1";
const NSFontTextStyle NSFontTextStyleTitle3 = @"title3";
const NSFontTextStyle NSFontTextStyleSubheadline = @"subheadline";

@implementation NSColor (TavrinShim)

+ (NSColor*)controlAccentColor {
    return [NSColor colorWithCalibratedRed:0 green:0.48 blue:1 alpha:1];
}

+ (NSColor*)separatorColor {
    return [NSColor colorWithCalibratedWhite:0 alpha:0.2];
}

+ (NSColor*)labelColor {
    return [NSColor colorWithCalibratedWhite:0 alpha:0.85];
}

+ (NSColor*)secondaryLabelColor {
    return [NSColor colorWithCalibratedWhite:0 alpha:0.5];
}

@end
@implementation NSFont (TavrinShim)

+ (NSFont*)preferredFontForTextStyle:(NSFontTextStyle)style options:(NSDictionary*)options {
    const CGFloat size = [style isEqual:@"title1"]        ? 22
                         : [style isEqual:@"title3"]      ? 15
                         : [style isEqual:@"subheadline"] ? 11
                                                          : 13;
    return [NSFont systemFontOfSize:size];
}

+ (NSFont*)systemFontOfSize:(CGFloat)size weight:(CGFloat)weight {
    return weight > 0.2 ? [NSFont boldSystemFontOfSize:size] : [NSFont systemFontOfSize:size];
}

@end
@implementation NSImageSymbolConfiguration

+ (instancetype)configurationWithPointSize:(CGFloat)size weight:(CGFloat)weight {
    NSImageSymbolConfiguration* made = [[self alloc] init];
    made.size = size;
    return made;
}

+ (instancetype)configurationWithHierarchicalColor:(NSColor*)color {
    NSImageSymbolConfiguration* made = [[self alloc] init];
    made.color = color;
    return made;
}

@end

// GNUstep draws on a screen, and those of the Mac that answers aren't its own.
static NSImage* drawn(NSString* name, CGFloat side) {
    NSImage* image = [[NSImage alloc] initWithSize:NSMakeSize(side, side)];
    tavrinHang(image, "symbol", name);
    if (answeringMac()) return image;
    [image lockFocus];
    [[NSColor colorWithCalibratedRed:0.3 green:0.3 blue:0.5 alpha:1] set];
    [[NSBezierPath bezierPathWithRoundedRect:NSMakeRect(1, 1, side - 2, side - 2) xRadius:3
                                     yRadius:3] stroke];
    NSString* letter = name.length ? [name substringToIndex:1] : @"?";
    [letter drawAtPoint:NSMakePoint(side / 2 - side / 4, 0)
         withAttributes:@{NSFontAttributeName : [NSFont systemFontOfSize:side * 0.7]}];
    [image unlockFocus];
    return image;
}
@implementation NSImage (TavrinShim)

+ (NSImage*)imageWithSystemSymbolName:(NSString*)name accessibilityDescription:(NSString*)description {
    return [name hasPrefix:@"no.such"] ? nil : drawn(name, 16);
}

- (NSImage*)imageWithSymbolConfiguration:(NSImageSymbolConfiguration*)configuration {
    return drawn(tavrinHung(self, "symbol"),
                 configuration.size > 0 ? std::ceil(configuration.size * 1.2) : self.size.width);
}

+ (NSImage*)imageWithSize:(NSSize)size flipped:(BOOL)flipped drawingHandler:(BOOL (^)(NSRect))handler {
    NSImage* image = [[NSImage alloc] initWithSize:size];
    [image lockFocus];
    handler(NSMakeRect(0, 0, size.width, size.height));
    [image unlockFocus];
    return image;
}
HUNG(NSString*, accessibilityDescription, setAccessibilityDescription)
HUNG_BOOL(isTemplateSet, setTemplate)
HUNG(NSValue*, tavrinInsets, setTavrinInsets)

- (NSEdgeInsets)capInsets {
    return {0, 0, 0, 0};
}

- (void)setCapInsets:(NSEdgeInsets)insets {
}

- (NSInteger)resizingMode {
    return NSImageResizingModeStretch;
}

- (void)setResizingMode:(NSInteger)mode {
}

@end
