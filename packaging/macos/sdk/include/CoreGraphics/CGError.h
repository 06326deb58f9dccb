#pragma once

#include <stand_in_base.h>

typedef CF_ENUM(int32_t, CGError) {
    kCGErrorSuccess = 0,
};
