#pragma once

#include <Foundation/NSObject.h>

typedef NSString *NSErrorDomain;

@interface NSError : NSObject <NSCopying, NSSecureCoding>
@property (readonly, copy) NSErrorDomain domain;
@property (readonly) NSInteger code;
@property (readonly, copy) NSString *localizedDescription;
@end
