#include "platform/macos/presentation/status_button_decorations.h"

#include <algorithm>

@interface TavrinActivePillView : NSView
@end

@implementation TavrinActivePillView

- (NSView*)hitTest:(NSPoint)point {
    return nil;
}

- (void)drawRect:(NSRect)dirtyRect {
    const CGFloat radius = NSHeight(self.bounds) / 2;
    [[NSColor.labelColor colorWithAlphaComponent:0.14] setFill];
    [[NSBezierPath bezierPathWithRoundedRect:self.bounds xRadius:radius yRadius:radius] fill];
}

@end

@interface TavrinCoralGlowView : NSView
@end

@implementation TavrinCoralGlowView

- (NSView*)hitTest:(NSPoint)point {
    return nil;
}

- (void)drawRect:(NSRect)dirtyRect {
    NSColor* coral = [NSColor colorWithSRGBRed:1 green:0.5 blue:0.31 alpha:0.85];
    NSGradient* gradient = [[NSGradient alloc] initWithStartingColor:coral
                                                         endingColor:[coral colorWithAlphaComponent:0]];
    [gradient drawInBezierPath:[NSBezierPath bezierPathWithOvalInRect:self.bounds]
        relativeCenterPosition:NSZeroPoint];
}

@end

namespace tavrin::macos {

namespace {

constexpr NSSize pillSize{.width = 24, .height = 20};
constexpr NSSize glowSize{.width = 36, .height = 24};
constexpr NSTimeInterval swellTime = 1.0; // seconds; shorter than the pulse, so that each swell ends

void placeBehind(NSView* decoration, NSSize size, NSView* button) {
    NSView* ground = button.superview;
    if (decoration.superview != ground) {
        [ground addSubview:decoration positioned:NSWindowBelow relativeTo:button];
        decoration.autoresizingMask =
            NSViewMinXMargin | NSViewMaxXMargin | NSViewMinYMargin | NSViewMaxYMargin;
    }
    decoration.frame = MenuBarControlDecorations::decorationFrame(size, button, ground);
}

} // namespace

NSRect MenuBarControlDecorations::decorationFrame(NSSize size, NSView* aroundButton, NSView* view) {
    const NSRect button = [aroundButton convertRect:aroundButton.bounds toView:view];
    const CGFloat height = std::min(size.height, NSHeight(button)); // the menu bar cuts off what is higher
    return NSMakeRect(NSMidX(button) - size.width / 2, NSMidY(button) - height / 2, size.width, height);
}

void MenuBarControlDecorations::attach(NSStatusBarButton* button) {
    if (!button.superview) return;
    if (!pill_) {
        pill_ = [[TavrinActivePillView alloc] initWithFrame:NSZeroRect];
        pill_.hidden = YES;
        glow_ = [[TavrinCoralGlowView alloc] initWithFrame:NSZeroRect];
        glow_.wantsLayer = YES; // fades are the layer's
        glow_.alphaValue = 0;
    }
    placeBehind(pill_, pillSize, button);
    placeBehind(glow_, glowSize, button);
}

void MenuBarControlDecorations::detach() {
    [pill_ removeFromSuperview];
    [glow_ removeFromSuperview];
}

void MenuBarControlDecorations::show(bool pillShown, double glow) {
    pill_.hidden = !pillShown;
    if (NSWorkspace.sharedWorkspace.accessibilityDisplayShouldReduceMotion) {
        glow_.alphaValue = glow;
        return;
    }
    TavrinCoralGlowView* view = glow_;
    [NSAnimationContext runAnimationGroup:^(NSAnimationContext* context) {
        context.duration = swellTime;
        view.animator.alphaValue = glow;
    }];
}

} // namespace tavrin::macos
