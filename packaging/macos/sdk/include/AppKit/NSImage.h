#pragma once

#include <AppKit/NSFontDescriptor.h>

@class NSColor, NSImageSymbolConfiguration;

typedef NSString *NSImageName;

typedef NS_ENUM(NSInteger, NSImageResizingMode) {
    NSImageResizingModeTile = 0,
    NSImageResizingModeStretch = 1,
};

@interface NSImage : NSObject <NSCopying, NSSecureCoding>
@property (copy) NSString *accessibilityDescription;
@property NSEdgeInsets capInsets;
@property NSImageResizingMode resizingMode;
@property NSSize size;
+ (NSImage *)imageNamed:(NSImageName)name;
+ (instancetype)imageWithSystemSymbolName:(NSString *)name accessibilityDescription:(NSString *)description;
+ (instancetype)imageWithSize:(NSSize)size flipped:(BOOL)flipped drawingHandler:(BOOL (^)(NSRect bounds))handler;
- (instancetype)initWithData:(NSData *)data;
- (NSImage *)imageWithSymbolConfiguration:(NSImageSymbolConfiguration *)configuration;
- (void)drawInRect:(NSRect)rect;
- (BOOL)isTemplate;
- (void)setTemplate:(BOOL)isTemplate;
@end

@interface NSImageSymbolConfiguration : NSObject <NSCopying, NSSecureCoding>
+ (instancetype)configurationWithPointSize:(CGFloat)size weight:(NSFontWeight)weight;
+ (instancetype)configurationWithHierarchicalColor:(NSColor *)color;
@end
