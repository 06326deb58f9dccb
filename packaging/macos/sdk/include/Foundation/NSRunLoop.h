#pragma once

#include <Foundation/NSObjCRuntime.h>
#include <Foundation/NSString.h>

typedef NSString *NSRunLoopMode NS_TYPED_EXTENSIBLE_ENUM;

@class NSTimer;

@interface NSRunLoop : NSObject
@property (class, readonly, strong) NSRunLoop *mainRunLoop;
@property (readonly, copy) NSRunLoopMode currentMode;
- (void)addTimer:(NSTimer *)timer forMode:(NSRunLoopMode)mode;
@end
