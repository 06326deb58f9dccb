#pragma once

#include <Foundation/Foundation.h>

@class NSAccessibilityCustomAction;

typedef NSString *NSAccessibilityRole;
APPKIT_EXTERN const NSAccessibilityRole NSAccessibilityButtonRole;
APPKIT_EXTERN const NSAccessibilityRole NSAccessibilityGroupRole;

typedef NSString *NSAccessibilityNotificationName;
typedef NSString *NSAccessibilityNotificationUserInfoKey;
typedef NS_ENUM(NSInteger, NSAccessibilityPriorityLevel) {
    NSAccessibilityPriorityHigh = 90,
};
APPKIT_EXTERN const NSAccessibilityNotificationName NSAccessibilityAnnouncementRequestedNotification;
APPKIT_EXTERN const NSAccessibilityNotificationUserInfoKey NSAccessibilityAnnouncementKey;
APPKIT_EXTERN const NSAccessibilityNotificationUserInfoKey NSAccessibilityPriorityKey;
APPKIT_EXTERN void NSAccessibilityPostNotificationWithUserInfo(
    id element, NSAccessibilityNotificationName notification,
    NSDictionary<NSAccessibilityNotificationUserInfoKey, id> *userInfo);

@protocol NSAccessibility <NSObject>
@property (getter=isAccessibilityElement) BOOL accessibilityElement;
@property (getter=isAccessibilityHidden) BOOL accessibilityHidden;
@property (copy) NSString *accessibilityLabel;
@property (copy) NSString *accessibilityHelp;
@property (strong) id accessibilityValue;
@property (copy) NSAccessibilityRole accessibilityRole;
@property (copy) NSArray<NSAccessibilityCustomAction *> *accessibilityCustomActions;
- (BOOL)accessibilityPerformPress;
- (BOOL)isAccessibilitySelectorAllowed:(SEL)selector;
@end

@interface NSAccessibilityCustomAction : NSObject
@property (copy) NSString *name;
- (instancetype)initWithName:(NSString *)name handler:(BOOL (^)(void))handler;
@end
