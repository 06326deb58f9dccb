#pragma once

#include <AppKit/NSClipView.h>
#include <AppKit/NSScroller.h>

@interface NSScrollView : NSView
@property BOOL autohidesScrollers;
@property BOOL automaticallyAdjustsContentInsets;
@property NSBorderType borderType;
@property (strong) NSClipView *contentView;
@property (strong) NSView *documentView;
@property BOOL drawsBackground;
@property BOOL hasVerticalScroller;
@property NSScrollerStyle scrollerStyle;
- (void)reflectScrolledClipView:(NSClipView *)clip;
@end
