#pragma once

#include <Foundation/NSObject.h>

typedef NSString *NSNotificationName NS_TYPED_EXTENSIBLE_ENUM;

@interface NSNotification : NSObject <NSCopying, NSCoding>
@property (readonly, copy) NSNotificationName name;
@property (readonly, retain) id object;
@end

@interface NSNotificationCenter : NSObject
@property (class, readonly, strong) NSNotificationCenter *defaultCenter;
- (void)addObserver:(id)observer selector:(SEL)selector name:(NSNotificationName)name object:(id)object;
- (void)removeObserver:(id)observer name:(NSNotificationName)name object:(id)object;
@end
