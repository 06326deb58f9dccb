#pragma once

#include <Carbon/HIToolbox/CarbonEventsCore.h>
#include <CoreFoundation/CFArray.h>
#include <CoreFoundation/CFString.h>

enum { kEventClassKeyboard = 'keyb' };
enum { kEventHotKeyPressed = 5 };
enum { typeEventHotKeyID = 'hkid' };

struct EventHotKeyID {
    OSType signature;
    UInt32 id;
};
typedef struct EventHotKeyID EventHotKeyID;
typedef struct OpaqueEventHotKeyRef *EventHotKeyRef;

#define kHISymbolicHotKeyCode CFSTR("kHISymbolicHotKeyCode")
#define kHISymbolicHotKeyModifiers CFSTR("kHISymbolicHotKeyModifiers")
#define kHISymbolicHotKeyEnabled CFSTR("kHISymbolicHotKeyEnabled")

TAVRIN_SDK_EXTERN EventTargetRef GetApplicationEventTarget(void);
TAVRIN_SDK_EXTERN OSStatus RegisterEventHotKey(UInt32 keyCode, UInt32 modifiers, EventHotKeyID identifier,
                                               EventTargetRef target, OptionBits options,
                                               EventHotKeyRef *registered);
TAVRIN_SDK_EXTERN OSStatus UnregisterEventHotKey(EventHotKeyRef hotKey);
TAVRIN_SDK_EXTERN OSStatus CopySymbolicHotKeys(CFArrayRef *hotKeys);
