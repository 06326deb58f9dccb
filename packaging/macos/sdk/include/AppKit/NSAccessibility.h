#pragma once

#include <Foundation/Foundation.h>

@class NSAccessibilityCustomAction;

typedef NSString *NSAccessibilityRole;
APPKIT_EXTERN const NSAccessibilityRole NSAccessibilityButtonRole;
APPKIT_EXTERN const NSAccessibilityRole NSAccessibilityGroupRole;

@protocol NSAccessibility <NSObject>
@property (getter=isAccessibilityElement) BOOL accessibilityElement;
@property (getter=isAccessibilityHidden) BOOL accessibilityHidden;
@property (copy) NSString *accessibilityLabel;
@property (copy) NSString *accessibilityHelp;
@property (copy) NSAccessibilityRole accessibilityRole;
@property (copy) NSArray<NSAccessibilityCustomAction *> *accessibilityCustomActions;
- (BOOL)accessibilityPerformPress;
- (BOOL)isAccessibilitySelectorAllowed:(SEL)selector;
@end

@interface NSAccessibilityCustomAction : NSObject
@property (copy) NSString *name;
- (instancetype)initWithName:(NSString *)name handler:(BOOL (^)(void))handler;
@end
