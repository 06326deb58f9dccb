#pragma once

#include <Foundation/NSObject.h>

@interface NSCharacterSet : NSObject <NSCopying, NSMutableCopying, NSSecureCoding>
@property (readonly, class, copy) NSCharacterSet *whitespaceAndNewlineCharacterSet;
@property (readonly, class, copy) NSCharacterSet *alphanumericCharacterSet;
@property (readonly, copy) NSCharacterSet *invertedSet;
@end
