#pragma once

#include <Foundation/NSObject.h>

typedef double NSTimeInterval; // seconds

@interface NSDate : NSObject <NSCopying, NSSecureCoding>
@property (readonly) NSTimeInterval timeIntervalSinceReferenceDate;
@property (readonly) NSTimeInterval timeIntervalSince1970;
+ (instancetype)date;
+ (instancetype)dateWithTimeIntervalSinceReferenceDate:(NSTimeInterval)seconds;
+ (instancetype)dateWithTimeIntervalSince1970:(NSTimeInterval)seconds;
@end
