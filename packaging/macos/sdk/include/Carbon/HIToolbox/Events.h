#pragma once

#include <stand_in_base.h>

enum {
    cmdKey = 1 << 8,
    shiftKey = 1 << 9,
    optionKey = 1 << 11,
    controlKey = 1 << 12,
};

TAVRIN_SDK_EXTERN UInt8 LMGetKbdType(void);
