#pragma once

#include <Foundation/NSNotification.h>

typedef NS_ENUM(NSUInteger, NSNotificationSuspensionBehavior) {
    NSNotificationSuspensionBehaviorDeliverImmediately = 4,
};

@interface NSDistributedNotificationCenter : NSNotificationCenter
+ (NSDistributedNotificationCenter *)defaultCenter;
- (void)addObserver:(id)observer
              selector:(SEL)selector
                  name:(NSNotificationName)name
                object:(NSString *)object
    suspensionBehavior:(NSNotificationSuspensionBehavior)behavior;
- (void)removeObserver:(id)observer name:(NSNotificationName)name object:(NSString *)object;
@end
