#pragma once

#include <Foundation/NSEnumerator.h>
#include <Foundation/NSRange.h>

@interface NSArray<__covariant ObjectType> : NSObject <NSCopying, NSMutableCopying, NSSecureCoding, NSFastEnumeration>
@property (readonly) NSUInteger count;
@property (nonatomic, readonly) ObjectType firstObject;
@property (nonatomic, readonly) ObjectType lastObject;
+ (instancetype)array;
+ (instancetype)arrayWithObjects:(const ObjectType __unsafe_unretained[])objects count:(NSUInteger)count;
- (ObjectType)objectAtIndex:(NSUInteger)index;
- (ObjectType)objectAtIndexedSubscript:(NSUInteger)index;
- (BOOL)containsObject:(ObjectType)object;
- (NSUInteger)indexOfObject:(ObjectType)object;
- (NSString *)componentsJoinedByString:(NSString *)separator;
@end

@interface NSMutableArray<ObjectType> : NSArray <ObjectType>
+ (instancetype)arrayWithCapacity:(NSUInteger)count;
- (void)addObject:(ObjectType)object;
- (void)insertObject:(ObjectType)object atIndex:(NSUInteger)index;
- (void)removeObjectAtIndex:(NSUInteger)index;
- (void)removeObject:(ObjectType)object;
- (void)removeAllObjects;
- (void)setObject:(ObjectType)object atIndexedSubscript:(NSUInteger)index;
@end
