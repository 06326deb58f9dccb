// Status items: each a small window at the upper right, the newest leftmost.
#include "answering_mac.h"
#include "hung.h"
#include "modelled_items.h"

static NSMutableArray* itemsShown() {
    static NSMutableArray* all = [NSMutableArray array];
    return all;
}

static void arrange() {
    const NSRect screen = [NSScreen.mainScreen frame];
    CGFloat right = NSMaxX(screen) - 100;
    for (NSStatusItem* item in itemsShown()) {
        NSWindow* window = tavrinHung(item, "window");
        if (!item.visible) {
            [window orderOut:nil];
            continue;
        }
        const CGFloat wanted = item.length;
        const CGFloat width = wanted >= 0 ? wanted : 28;
        right -= width;
        [window setFrame:NSMakeRect(right, NSMaxY(screen) - 24, MAX(width, 1), 24) display:YES];
        [window orderFrontRegardless];
    }
}
@implementation NSStatusItem (TavrinShim)

- (NSStatusBarButton*)button {
    return tavrinHung(self, "button");
}
HUNG(NSString*, autosaveName, setAutosaveName)

- (BOOL)isVisible {
    id value = tavrinHung(self, "visible");
    return !value || [value boolValue];
}

- (void)setVisible:(BOOL)visible {
    tavrinHang(self, "visible", @(visible));
    arrange();
}

- (CGFloat)length {
    return [tavrinHung(self, "length") doubleValue];
}

- (void)setLength:(CGFloat)length {
    tavrinHang(self, "length", @(length));
    arrange();
}

@end
@implementation NSStatusBar (TavrinShim)

+ (NSStatusBar*)systemStatusBar {
    static NSStatusBar* bar = [[NSStatusBar alloc] init];
    return bar;
}

- (NSStatusItem*)statusItemWithLength:(CGFloat)length {
    if (answeringMac()) return tavrinModelledItem(length);
    NSStatusItem* item = [[NSStatusItem alloc] init];
    NSWindow* window = [[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, 28, 24)
                                                   styleMask:NSBorderlessWindowMask
                                                     backing:NSBackingStoreBuffered
                                                       defer:NO];
    [window setReleasedWhenClosed:NO];
    [window setLevel:NSStatusWindowLevel];
    NSStatusBarButton* button = [[NSStatusBarButton alloc] initWithFrame:[[window contentView] bounds]];
    button.autoresizingMask = NSViewWidthSizable | NSViewHeightSizable;
    [button setBordered:NO];
    [button setTitle:@""];
    [[window contentView] addSubview:button];
    tavrinHang(item, "window", window);
    tavrinHang(item, "button", button);
    [itemsShown() addObject:item];
    item.length = length;
    return item;
}

- (void)removeStatusItem:(NSStatusItem*)item {
    if (tavrinRemovedModelled(item)) return;
    [(NSWindow*)tavrinHung(item, "window") orderOut:nil];
    [itemsShown() removeObject:item];
    arrange();
}

@end
