// Drags of AppKit by the call that GNUstep knows.
#import <AppKit/AppKit.h>

@implementation NSDraggingItem

- (instancetype)initWithPasteboardWriter:(id)writer {
    if ((self = [super init])) self.writer = writer;
    return self;
}

- (void)setDraggingFrame:(NSRect)frame contents:(id)contents {
    self.draggingFrame = frame;
    self.contents = contents;
}

@end
@implementation NSDraggingSession
@end
@implementation NSView (TavrinShimDragging)

- (NSDraggingSession*)beginDraggingSessionWithItems:(NSArray*)items event:(NSEvent*)event source:(id)source {
    NSDraggingItem* item = items.firstObject;
    NSPasteboardItem* value = item.writer;
    NSPasteboard* board = [NSPasteboard pasteboardWithName:NSDragPboard];
    [board declareTypes:value.types owner:nil];
    for (NSString* type in value.types) [board setString:[value stringForType:type] forType:type];
    [self dragImage:item.contents
                 at:item.draggingFrame.origin
             offset:NSZeroSize
              event:event
         pasteboard:board
             source:source
          slideBack:NO];
    return [[NSDraggingSession alloc] init];
}

@end
