#pragma once

#include <Foundation/NSDate.h>

@interface NSTimer : NSObject
+ (NSTimer *)scheduledTimerWithTimeInterval:(NSTimeInterval)seconds
                                    repeats:(BOOL)repeats
                                      block:(void (^)(NSTimer *timer))block;
@end
