// Notices of other processes: all of them are posted in this one, so no helper of GNUstep's has to run.
#include "replaced.h"

#import <Foundation/Foundation.h>

// In place of an NSDistributedNotificationCenter, which none but its own class may make.
@interface TavrinDistributedCenter : NSNotificationCenter
@end

@implementation TavrinDistributedCenter

- (void)addObserver:(id)observer
              selector:(SEL)selector
                  name:(NSString*)name
                object:(NSString*)object
    suspensionBehavior:(NSNotificationSuspensionBehavior)behavior {
    [self addObserver:observer selector:selector name:name object:object];
}

- (void)postNotificationName:(NSString*)name
                      object:(NSString*)object
                    userInfo:(NSDictionary*)information
          deliverImmediately:(BOOL)isImmediate {
    [self postNotificationName:name object:object userInfo:information];
}

@end

namespace {

id localCenter(id, SEL, ...) {
    static TavrinDistributedCenter* made = [[TavrinDistributedCenter alloc] init];
    return made;
}

} // namespace

@interface TavrinDistributedStart : NSObject
@end

@implementation TavrinDistributedStart

+ (void)load {
    tavrinReplaced(
        class_getClassMethod(objc_getClass("NSDistributedNotificationCenter"), @selector(defaultCenter)),
        localCenter);
}

@end
