#pragma once

#include <AppKit/NSView.h>

@class NSImage;

typedef NS_ENUM(NSInteger, NSVisualEffectMaterial) {
    NSVisualEffectMaterialPopover = 6,
};

typedef NS_ENUM(NSInteger, NSVisualEffectState) {
    NSVisualEffectStateActive = 1,
};

@interface NSVisualEffectView : NSView
@property NSVisualEffectMaterial material;
@property (retain) NSImage *maskImage;
@property NSVisualEffectState state;
@end
