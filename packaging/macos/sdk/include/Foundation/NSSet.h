#pragma once

#include <Foundation/NSEnumerator.h>

@class NSArray<ObjectType>;

@interface NSSet<__covariant ObjectType> : NSObject <NSCopying, NSMutableCopying, NSSecureCoding, NSFastEnumeration>
@property (readonly) NSUInteger count;
+ (instancetype)setWithArray:(NSArray<ObjectType> *)array;
- (BOOL)containsObject:(ObjectType)object;
@end
