#pragma once

#include <Foundation/NSObject.h>

@interface NSBundle : NSObject
@property (class, readonly, strong) NSBundle *mainBundle;
@property (readonly, copy) NSString *bundleIdentifier;
+ (instancetype)bundleWithPath:(NSString *)path;
- (id)objectForInfoDictionaryKey:(NSString *)key;
- (NSString *)localizedStringForKey:(NSString *)key value:(NSString *)value table:(NSString *)tableName;
@end
