#pragma once

#include <ApplicationServices/ApplicationServices.h>
#include <Foundation/Foundation.h>

typedef NS_ENUM(NSUInteger, NSEventType) {
    NSEventTypeLeftMouseDown = 1,
    NSEventTypeLeftMouseUp = 2,
    NSEventTypeRightMouseDown = 3,
    NSEventTypeRightMouseUp = 4,
    NSEventTypeMouseMoved = 5,
    NSEventTypeLeftMouseDragged = 6,
    NSEventTypeKeyDown = 10,
    NSEventTypeScrollWheel = 22,
};

typedef NS_OPTIONS(unsigned long long, NSEventMask) {
    NSEventMaskLeftMouseDown = 1ULL << NSEventTypeLeftMouseDown,
    NSEventMaskLeftMouseUp = 1ULL << NSEventTypeLeftMouseUp,
    NSEventMaskRightMouseDown = 1ULL << NSEventTypeRightMouseDown,
    NSEventMaskRightMouseUp = 1ULL << NSEventTypeRightMouseUp,
    NSEventMaskKeyDown = 1ULL << NSEventTypeKeyDown,
};

typedef NS_OPTIONS(NSUInteger, NSEventModifierFlags) {
    NSEventModifierFlagShift = 1 << 17,
    NSEventModifierFlagControl = 1 << 18,
    NSEventModifierFlagOption = 1 << 19,
    NSEventModifierFlagCommand = 1 << 20,
};

typedef NS_OPTIONS(NSUInteger, NSEventPhase) {
    NSEventPhaseNone = 0,
    NSEventPhaseBegan = 1,
    NSEventPhaseStationary = 2,
    NSEventPhaseChanged = 4,
    NSEventPhaseEnded = 8,
    NSEventPhaseCancelled = 16,
    NSEventPhaseMayBegin = 32,
};

@interface NSEvent : NSObject <NSCopying, NSCoding>
@property (readonly) NSEventType type;
@property (readonly) NSTimeInterval timestamp;
@property (readonly) NSEventModifierFlags modifierFlags;
@property (readonly) NSPoint locationInWindow;
@property (readonly) unsigned short keyCode;
@property (getter=isARepeat, readonly) BOOL ARepeat;
@property (class, readonly) NSPoint mouseLocation;
@property (readonly) BOOL hasPreciseScrollingDeltas;
@property (readonly) CGFloat scrollingDeltaX;
@property (readonly) CGFloat scrollingDeltaY;
@property (readonly) NSEventPhase phase;
@property (readonly) NSEventPhase momentumPhase;
@property (getter=isDirectionInvertedFromDevice, readonly) BOOL directionInvertedFromDevice;
+ (id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(void (^)(NSEvent *event))handler;
+ (id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(NSEvent * (^)(NSEvent *event))handler;
+ (void)removeMonitor:(id)monitor;
@end
