#pragma once

#include <AppKit/NSCell.h>
#include <AppKit/NSView.h>

typedef NS_ENUM(NSUInteger, NSProgressIndicatorStyle) {
    NSProgressIndicatorStyleBar = 0,
    NSProgressIndicatorStyleSpinning = 1,
};

@interface NSProgressIndicator : NSView
@property NSControlSize controlSize;
@property (getter=isIndeterminate) BOOL indeterminate;
@property NSProgressIndicatorStyle style;
- (void)startAnimation:(id)sender;
@end
