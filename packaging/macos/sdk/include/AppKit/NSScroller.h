#pragma once

#include <Foundation/Foundation.h>

typedef NS_ENUM(NSInteger, NSScrollerStyle) {
    NSScrollerStyleLegacy = 0,
    NSScrollerStyleOverlay = 1,
};
