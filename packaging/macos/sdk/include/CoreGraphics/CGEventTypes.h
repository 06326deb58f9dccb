#pragma once

#include <CoreGraphics/CGRemoteOperation.h>

typedef struct CF_BRIDGED_TYPE(id) __CGEvent *CGEventRef;
typedef struct CF_BRIDGED_TYPE(id) __CGEventSource *CGEventSourceRef;

typedef CF_ENUM(uint32_t, CGMouseButton) {
    kCGMouseButtonLeft = 0,
};

typedef CF_ENUM(uint32_t, CGEventType) {
    kCGEventLeftMouseDown = 1,
    kCGEventLeftMouseUp = 2,
    kCGEventMouseMoved = 5,
    kCGEventLeftMouseDragged = 6,
};

typedef CF_OPTIONS(uint64_t, CGEventFlags) {
    kCGEventFlagMaskShift = 0x00020000,
    kCGEventFlagMaskControl = 0x00040000,
    kCGEventFlagMaskAlternate = 0x00080000,
    kCGEventFlagMaskCommand = 0x00100000,
};

typedef CF_ENUM(uint32_t, CGEventField) {
    kCGMouseEventNumber = 0,
    kCGMouseEventClickState = 1,
    kCGMouseEventDeltaX = 4,
    kCGMouseEventDeltaY = 5,
    kCGEventTargetUnixProcessID = 40,
    kCGMouseEventWindowUnderMousePointer = 91,
    kCGMouseEventWindowUnderMousePointerThatCanHandleThisEvent = 92,
};

typedef CF_ENUM(uint32_t, CGEventTapLocation) {
    kCGHIDEventTap = 0,
    kCGSessionEventTap,
};

typedef CF_ENUM(int32_t, CGEventSourceStateID) {
    kCGEventSourceStateCombinedSessionState = 0,
    kCGEventSourceStateHIDSystemState = 1,
};
