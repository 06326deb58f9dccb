#pragma once

#include <Foundation/Foundation.h>

@interface NSAnimationContext : NSObject
@property NSTimeInterval duration;
+ (void)runAnimationGroup:(void(NS_NOESCAPE ^)(NSAnimationContext *context))changes;
@end
