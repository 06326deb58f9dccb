#pragma once

#include "arc_runtime.h"

// Properties that a category adds, kept beside the object.
#define HUNG(type, getter, setter)                                                                           \
    -(type)getter {                                                                                          \
        return tavrinHung(self, #getter);                                                                    \
    }                                                                                                        \
    -(void)setter : (type)value {                                                                            \
        tavrinHang(self, #getter, value);                                                                    \
    }
#define HUNG_BOOL(getter, setter)                                                                            \
    -(BOOL)getter {                                                                                          \
        return [tavrinHung(self, #getter) boolValue];                                                        \
    }                                                                                                        \
    -(void)setter : (BOOL)value {                                                                            \
        tavrinHang(self, #getter, @(value));                                                                 \
    }
