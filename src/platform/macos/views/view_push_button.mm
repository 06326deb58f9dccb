#include "platform/macos/views/view_push_button.h"

@implementation TavrinPushButton

- (BOOL)acceptsFirstMouse:(NSEvent*)event {
    return YES;
}

@end
