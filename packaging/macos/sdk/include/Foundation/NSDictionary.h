#pragma once

#include <Foundation/NSEnumerator.h>

@class NSArray<ObjectType>;

@interface NSDictionary<__covariant KeyType, __covariant ObjectType>
    : NSObject <NSCopying, NSMutableCopying, NSSecureCoding, NSFastEnumeration>
@property (readonly) NSUInteger count;
@property (readonly, copy) NSArray<KeyType> *allKeys;
+ (instancetype)dictionary;
+ (instancetype)dictionaryWithObjects:(const ObjectType __unsafe_unretained[])objects
                              forKeys:(const KeyType<NSCopying> __unsafe_unretained[])keys
                                count:(NSUInteger)count;
- (ObjectType)objectForKey:(KeyType)key;
- (ObjectType)objectForKeyedSubscript:(KeyType)key;
- (void)enumerateKeysAndObjectsUsingBlock:(void(NS_NOESCAPE ^)(KeyType key, ObjectType object, BOOL *stop))block;
@end

@interface NSMutableDictionary<KeyType, ObjectType> : NSDictionary <KeyType, ObjectType>
+ (instancetype)dictionaryWithCapacity:(NSUInteger)count;
- (void)setObject:(ObjectType)object forKey:(KeyType<NSCopying>)key;
- (void)setObject:(ObjectType)object forKeyedSubscript:(KeyType<NSCopying>)key;
- (void)removeObjectForKey:(KeyType)key;
@end
