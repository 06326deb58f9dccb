#pragma once

#include <stand_in_base.h>

typedef CF_ENUM(SInt32, AXError) {
    kAXErrorSuccess = 0,
};
