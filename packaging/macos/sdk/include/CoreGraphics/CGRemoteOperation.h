#pragma once

#include <CoreFoundation/CFCGTypes.h>
#include <CoreGraphics/CGError.h>

typedef uint16_t CGKeyCode;

typedef CF_OPTIONS(uint32_t, CGEventFilterMask) {
    kCGEventFilterMaskPermitLocalMouseEvents = 0x00000001,
    kCGEventFilterMaskPermitLocalKeyboardEvents = 0x00000002,
    kCGEventFilterMaskPermitSystemDefinedEvents = 0x00000004,
};

typedef CF_ENUM(uint32_t, CGEventSuppressionState) {
    kCGEventSuppressionStateSuppressionInterval = 0,
    kCGEventSuppressionStateRemoteMouseDrag,
};

CG_EXTERN CGError CGWarpMouseCursorPosition(CGPoint location);
