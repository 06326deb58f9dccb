#pragma once

#include <Foundation/NSObject.h>

typedef NSString *NSExceptionName NS_TYPED_EXTENSIBLE_ENUM;

@interface NSException : NSObject <NSCopying, NSSecureCoding>
@property (readonly, copy) NSExceptionName name;
@property (readonly, copy) NSString *reason;
@end
