#pragma once

#include <Foundation/Foundation.h>

@class NSStatusBarButton;

typedef NSString *NSStatusItemAutosaveName;

@interface NSStatusItem : NSObject
@property (copy) NSStatusItemAutosaveName autosaveName;
@property (readonly, strong) NSStatusBarButton *button;
@property CGFloat length;
@property (getter=isVisible) BOOL visible;
@end
