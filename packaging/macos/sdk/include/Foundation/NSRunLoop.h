#pragma once

#include <Foundation/NSObjCRuntime.h>
#include <Foundation/NSString.h>

typedef NSString *NSRunLoopMode NS_TYPED_EXTENSIBLE_ENUM;

@interface NSRunLoop : NSObject
@property (class, readonly, strong) NSRunLoop *mainRunLoop;
@property (readonly, copy) NSRunLoopMode currentMode;
@end
