#pragma once

#include <stand_in_base.h>

struct UCKeyboardTypeHeader {
    UInt32 keyboardTypeFirst;
    UInt32 keyboardTypeLast;
    UInt32 keyModifiersToTableNumOffset;
    UInt32 keyToCharTableIndexOffset;
    UInt32 keyStateRecordsIndexOffset;
    UInt32 keyStateTerminatorsOffset;
    UInt32 keySequenceDataIndexOffset;
};
typedef struct UCKeyboardTypeHeader UCKeyboardTypeHeader;

struct UCKeyboardLayout {
    UInt16 keyLayoutHeaderFormat;
    UInt16 keyLayoutDataVersion;
    UInt32 keyLayoutFeatureInfoOffset;
    UInt32 keyboardTypeCount;
    UCKeyboardTypeHeader keyboardTypeList[1];
};
typedef struct UCKeyboardLayout UCKeyboardLayout;

enum { kUCKeyActionDisplay = 3 };
enum { kUCKeyTranslateNoDeadKeysMask = 1 };

TAVRIN_SDK_EXTERN OSStatus UCKeyTranslate(const UCKeyboardLayout *layout, UInt16 keyCode, UInt16 action,
                                          UInt32 modifiers, UInt32 keyboardType, UInt32 options,
                                          UInt32 *deadKeyState, UniCharCount capacity, UniCharCount *count,
                                          UniChar *characters);
