#pragma once

#include <AppKit/NSImageRep.h>

@class NSData;

typedef NS_ENUM(NSUInteger, NSBitmapImageFileType) {
    NSBitmapImageFileTypePNG = 4,
};

typedef NSString *NSBitmapImageRepPropertyKey;

@interface NSBitmapImageRep : NSImageRep
- (instancetype)initWithBitmapDataPlanes:(unsigned char **)planes
                              pixelsWide:(NSInteger)width
                              pixelsHigh:(NSInteger)height
                           bitsPerSample:(NSInteger)bitsPerSample
                         samplesPerPixel:(NSInteger)samplesPerPixel
                                hasAlpha:(BOOL)hasAlpha
                                isPlanar:(BOOL)isPlanar
                          colorSpaceName:(NSColorSpaceName)colorSpaceName
                             bytesPerRow:(NSInteger)bytesPerRow
                            bitsPerPixel:(NSInteger)bitsPerPixel;
- (NSData *)representationUsingType:(NSBitmapImageFileType)type
                         properties:(NSDictionary<NSBitmapImageRepPropertyKey, id> *)properties;
@end
