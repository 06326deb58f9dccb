#pragma once

#include <Foundation/NSObject.h>

@interface NSData : NSObject <NSCopying, NSMutableCopying, NSSecureCoding>
@property (readonly) NSUInteger length;
@property (readonly) const void *bytes NS_RETURNS_INNER_POINTER;
+ (instancetype)dataWithBytes:(const void *)bytes length:(NSUInteger)length;
@end
