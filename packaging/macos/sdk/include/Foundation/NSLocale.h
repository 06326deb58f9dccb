#pragma once

#include <Foundation/NSObject.h>

@interface NSLocale : NSObject <NSCopying, NSSecureCoding>
@property (class, readonly, copy) NSLocale *currentLocale;
@end
