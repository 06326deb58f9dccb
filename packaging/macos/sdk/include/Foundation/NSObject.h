#pragma once

#include <CoreFoundation/CFBase.h>
#include <Foundation/NSObjCRuntime.h>

@class NSCoder;
typedef struct _NSZone NSZone;

@protocol NSCopying
- (id)copyWithZone:(NSZone *)zone;
@end

@protocol NSMutableCopying
- (id)mutableCopyWithZone:(NSZone *)zone;
@end

@protocol NSCoding
- (void)encodeWithCoder:(NSCoder *)coder;
- (instancetype)initWithCoder:(NSCoder *)coder;
@end

@protocol NSSecureCoding <NSCoding>
@required
@property (class, readonly) BOOL supportsSecureCoding;
@end
