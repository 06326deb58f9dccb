// GNUstep's popover never says that it is shown, tells no delegate and stands above the screen.
#include "hung.h"

#import <AppKit/AppKit.h>

@implementation NSPopover (TavrinShim)

- (BOOL)isShown {
    return [(NSWindow*)tavrinHung(self, "window") isVisible];
}

- (void)showRelativeToRect:(NSRect)rect ofView:(NSView*)view preferredEdge:(NSRectEdge)edge {
    if (!view.window.isVisible) return;
    NSWindow* window = tavrinHung(self, "window");
    if (!window) {
        window = [[NSPanel alloc] initWithContentRect:NSMakeRect(0, 0, 10, 10)
                                            styleMask:NSBorderlessWindowMask
                                              backing:NSBackingStoreBuffered
                                                defer:YES];
        [window setReleasedWhenClosed:NO];
        [window setLevel:NSPopUpMenuWindowLevel];
        [window.contentView addSubview:self.contentViewController.view];
        tavrinHang(self, "window", window);
    }
    tavrinHang(self, "anchor",
               [NSValue valueWithRect:[view.window convertRectToScreen:[view convertRect:rect toView:nil]]]);
    [self tavrinPlace];
    [window orderFrontRegardless];
}

- (void)tavrinPlace {
    NSWindow* window = tavrinHung(self, "window");
    const NSRect anchor = [tavrinHung(self, "anchor") rectValue];
    const NSSize size = [tavrinHung(self, "size") sizeValue];
    [window setFrame:NSMakeRect(NSMidX(anchor) - size.width / 2, NSMinY(anchor) - size.height, size.width,
                                size.height)
             display:YES];
    self.contentViewController.view.frame = NSMakeRect(0, 0, size.width, size.height);
}

- (NSSize)contentSize {
    return [tavrinHung(self, "size") sizeValue];
}

- (void)setContentSize:(NSSize)size {
    tavrinHang(self, "size", [NSValue valueWithSize:size]);
    if (self.isShown) [self tavrinPlace];
}

- (void)close {
    if (!self.isShown) return;
    [(NSWindow*)tavrinHung(self, "window") orderOut:nil];
    [self.delegate popoverDidClose:[NSNotification notificationWithName:NSPopoverDidCloseNotification
                                                                 object:self]];
}

@end
