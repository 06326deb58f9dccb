#pragma once

#include <AppKit/NSView.h>

// The middle and the right changed places with the change of processors.
typedef NS_ENUM(NSInteger, NSTextAlignment) {
    NSTextAlignmentLeft = 0,
#if defined(__x86_64__)
    NSTextAlignmentRight = 1,
    NSTextAlignmentCenter = 2,
#else
    NSTextAlignmentCenter = 1,
    NSTextAlignmentRight = 2,
#endif
    NSTextAlignmentJustified = 3,
    NSTextAlignmentNatural = 4,
};

@interface NSText : NSView
@end
