#pragma once

#include <Foundation/NSObjCRuntime.h>

typedef struct _NSRange {
    NSUInteger location;
    NSUInteger length;
} NSRange;

NS_INLINE NSRange NSMakeRange(NSUInteger location, NSUInteger length) {
    NSRange range;
    range.location = location;
    range.length = length;
    return range;
}
