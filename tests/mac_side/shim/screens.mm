// Screens: while a modelled Mac answers, its own, counted from the lower left of the first.
#include "platform/screens.h"

#include "answering_mac.h"
#include "replaced.h"
#include "told.h"

#import <AppKit/AppKit.h>
#include <ApplicationServices/ApplicationServices.h>

@interface TavrinScreen : NSObject {
  @public
    tavrin::Screen screen_;
    double primaryHeight_;
}
@end

@implementation TavrinScreen

- (NSRect)upwards:(const std::optional<tavrin::Rect>&)rect {
    return rect ? NSMakeRect(rect->x, primaryHeight_ - rect->maxY(), rect->width, rect->height) : NSZeroRect;
}

- (NSRect)frame {
    return [self upwards:screen_.frame];
}

/// Windows are kept off the menu bar and off one point below it.
- (NSRect)visibleFrame {
    NSRect rest = self.frame;
    rest.size.height -= screen_.menuBarHeight + 1;
    return rest;
}

- (CGFloat)backingScaleFactor {
    return screen_.scale;
}

- (NSEdgeInsets)safeAreaInsets {
    return {screen_.leftMenuBarArea ? screen_.leftMenuBarArea->height : 0, 0, 0, 0};
}

- (NSRect)auxiliaryTopLeftArea {
    return [self upwards:screen_.leftMenuBarArea];
}

- (NSRect)auxiliaryTopRightArea {
    return [self upwards:screen_.rightMenuBarArea];
}

@end

namespace {

NSArray* (*screensBefore)(id, SEL);

NSArray* screens(id self, SEL selector) {
    if (!answeringMac()) return screensBefore(self, selector);
    NSMutableArray* all = [NSMutableArray array];
    const auto screens = answeringMac()->screens.screens();
    for (const auto& screen : screens) {
        TavrinScreen* made = [[TavrinScreen alloc] init];
        made->screen_ = screen;
        made->primaryHeight_ = screens.front().frame.height;
        [all addObject:made];
    }
    return all;
}

} // namespace

@interface TavrinScreens : NSObject
@end

@implementation TavrinScreens

+ (void)load {
    screensBefore =
        tavrinReplaced(class_getClassMethod(objc_getClass("NSScreen"), @selector(screens)), screens);
}

@end

extern "C" {

/// As for a process that nobody logged in, while no Mac answers; its screens are out of sight by being
/// locked.
CFDictionaryRef CGSessionCopyCurrentDictionary(void) {
    if (const auto* told = toldFor(__func__)) return (CFDictionaryRef)told->retained();
    if (!answeringMac()) return nullptr;
    NSNumber* isLocked = [NSNumber numberWithBool:!answeringMac()->screens.areShown()];
    return (__bridge_retained CFDictionaryRef) @{
        (__bridge NSString*)kCGSessionOnConsoleKey : [NSNumber numberWithBool:YES],
        @"CGSSessionScreenIsLocked" : isLocked
    };
}

boolean_t CGDisplayIsAsleep(CGDirectDisplayID) {
    const auto* told = toldFor(__func__);
    return told && told->status;
}
}
