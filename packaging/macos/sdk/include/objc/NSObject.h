#pragma once

#include <stand_in_base.h>

#if defined(__OBJC_BOOL_IS_BOOL) && __OBJC_BOOL_IS_BOOL
typedef bool BOOL;
#else
typedef signed char BOOL;
#endif
#ifndef YES
#define YES __objc_yes
#define NO __objc_no
#endif
#ifndef nil
#define nil nullptr
#define Nil nullptr
#endif

typedef long NSInteger;
typedef unsigned long NSUInteger;

@class NSString, NSMethodSignature, NSInvocation, Protocol;

@protocol NSObject
- (BOOL)isEqual:(id)object;
@property (readonly) NSUInteger hash;
@property (readonly) Class superclass;
- (Class)class;
- (instancetype)self;
- (id)performSelector:(SEL)selector;
- (id)performSelector:(SEL)selector withObject:(id)object;
- (BOOL)isKindOfClass:(Class)wanted;
- (BOOL)isMemberOfClass:(Class)wanted;
- (BOOL)conformsToProtocol:(Protocol *)protocol;
- (BOOL)respondsToSelector:(SEL)selector;
@property (readonly, copy) NSString *description;
@end

__attribute__((objc_root_class))
@interface NSObject <NSObject> {
    Class isa;
}
+ (void)initialize;
+ (instancetype)new;
+ (instancetype)alloc;
+ (Class)class;
+ (Class)superclass;
+ (BOOL)instancesRespondToSelector:(SEL)selector;
- (instancetype)init NS_DESIGNATED_INITIALIZER;
- (void)dealloc;
- (id)copy;
- (id)mutableCopy;
@end
