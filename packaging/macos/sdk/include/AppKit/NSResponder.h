#pragma once

#include <Foundation/Foundation.h>

@class NSEvent, NSMenu;

@interface NSResponder : NSObject <NSCoding>
@property (readonly) BOOL acceptsFirstResponder;
@property (strong) NSMenu *menu;
- (BOOL)performKeyEquivalent:(NSEvent *)event;
- (BOOL)resignFirstResponder;
- (void)keyDown:(NSEvent *)event;
- (void)mouseDown:(NSEvent *)event;
- (void)mouseDragged:(NSEvent *)event;
- (void)mouseUp:(NSEvent *)event;
@end
