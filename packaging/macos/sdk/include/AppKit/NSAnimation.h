#pragma once

#include <Foundation/Foundation.h>

@protocol NSAnimatablePropertyContainer
- (instancetype)animator;
@end
