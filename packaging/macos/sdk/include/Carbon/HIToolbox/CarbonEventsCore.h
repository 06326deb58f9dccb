#pragma once

#include <stand_in_base.h>

typedef UInt32 OptionBits;
typedef struct OpaqueEventRef *EventRef;
typedef struct OpaqueEventHandlerRef *EventHandlerRef;
typedef struct OpaqueEventHandlerCallRef *EventHandlerCallRef;
typedef struct OpaqueEventTargetRef *EventTargetRef;
typedef OSType EventParamName;
typedef OSType EventParamType;

enum { noErr = 0 };
enum { eventNotHandledErr = -9874 };
enum { kEventParamDirectObject = '----' };

struct EventTypeSpec {
    OSType eventClass;
    UInt32 eventKind;
};
typedef struct EventTypeSpec EventTypeSpec;

typedef OSStatus (*EventHandlerProcPtr)(EventHandlerCallRef call, EventRef event, void *userData);
typedef EventHandlerProcPtr EventHandlerUPP;

TAVRIN_SDK_EXTERN OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP handler, ItemCount typeCount,
                                               const EventTypeSpec *types, void *userData,
                                               EventHandlerRef *installed);
TAVRIN_SDK_EXTERN OSStatus RemoveEventHandler(EventHandlerRef handler);
TAVRIN_SDK_EXTERN OSStatus GetEventParameter(EventRef event, EventParamName name, EventParamType wanted,
                                             EventParamType *actual, ByteCount capacity, ByteCount *size,
                                             void *data);
