// What assistive technology would be told of a view is only kept.
#include "hung.h"

#import <AppKit/AppKit.h>

@implementation NSObject (TavrinShimAccessibility)
HUNG_BOOL(isAccessibilityElement, setAccessibilityElement)
HUNG_BOOL(isAccessibilityHidden, setAccessibilityHidden)
HUNG(NSString*, accessibilityLabel, setAccessibilityLabel)
HUNG(NSString*, accessibilityHelp, setAccessibilityHelp)
HUNG(id, accessibilityValue, setAccessibilityValue)
HUNG(NSString*, accessibilityRole, setAccessibilityRole)
HUNG(NSArray*, accessibilityCustomActions, setAccessibilityCustomActions)

- (BOOL)isAccessibilitySelectorAllowed:(SEL)selector {
    return YES;
}

@end
@implementation TavrinShimCustomAction

- (instancetype)initWithName:(NSString*)name handler:(BOOL (^)(void))handler {
    if ((self = [super init])) {
        self.name = name;
        self.handler = handler;
    }
    return self;
}

@end
