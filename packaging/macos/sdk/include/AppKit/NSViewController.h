#pragma once

#include <AppKit/NSResponder.h>

@class NSBundle, NSView;

typedef NSString *NSNibName;

@interface NSViewController : NSResponder
@property (strong) NSView *view;
- (instancetype)initWithNibName:(NSNibName)name bundle:(NSBundle *)bundle;
@end
