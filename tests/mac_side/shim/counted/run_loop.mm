// The main run loop as Core Foundation has it, over NSRunLoop.
#import <AppKit/AppKit.h>
#include <Block.h>
#include <CoreFoundation/CoreFoundation.h>
#include <array>
#include <cstdlib>
#include <unistd.h>

extern "C" const CFRunLoopMode kCFRunLoopCommonModes = (CFRunLoopMode) @"common";

namespace {

NSArray* commonModes() {
    return [NSArray
        arrayWithObjects:NSDefaultRunLoopMode, NSModalPanelRunLoopMode, NSEventTrackingRunLoopMode, nil];
}

const std::array<int, 2>& pipeEnds();

} // namespace

// Blocks come through a pipe: performSelectorOnMainThread: now and then forgets to wake the loop.
@interface TavrinBlockPipe : NSObject
@end

@implementation TavrinBlockPipe

- (void)receivedEvent:(void*)data type:(RunLoopEventType)type extra:(void*)extra forMode:(NSString*)mode {
    void (^block)(void) = nullptr;
    if (read(pipeEnds()[0], &block, sizeof block) != sizeof block) return;
    NSAutoreleasePool* pool = [NSAutoreleasePool new];
    block();
    Block_release(block);
    [pool release];
}

@end

@interface TavrinTimerBlock : NSObject {
  @public
    void (^block_)(CFRunLoopTimerRef);
}
@end

@implementation TavrinTimerBlock

- (void)fired:(NSTimer*)timer {
    block_((CFRunLoopTimerRef)timer);
}

- (void)dealloc {
    Block_release(block_);
    [super dealloc];
}

@end

namespace {

const std::array<int, 2>& pipeEnds() {
    static const auto ends = [] {
        std::array<int, 2> made{};
        if (pipe(made.data()) != 0) std::abort();
        for (NSString* mode in commonModes())
            [[NSRunLoop mainRunLoop] addEvent:(void*)(intptr_t)made[0]
                                         type:ET_RDESC
                                      watcher:(id)[TavrinBlockPipe new]
                                      forMode:mode];
        return made;
    }();
    return ends;
}

} // namespace

extern "C" {

CFRunLoopRef CFRunLoopGetMain(void) { return nullptr; }

void CFRunLoopWakeUp(CFRunLoopRef) {}

void CFRunLoopPerformBlock(CFRunLoopRef, CFTypeRef, void (^block)(void)) {
    void (^kept)(void) = Block_copy(block);
    if (write(pipeEnds()[1], &kept, sizeof kept) != sizeof kept) std::abort();
}

CFRunLoopTimerRef CFRunLoopTimerCreateWithHandler(CFAllocatorRef, CFAbsoluteTime date,
                                                  CFTimeInterval interval, CFOptionFlags, CFIndex,
                                                  void (^block)(CFRunLoopTimerRef)) {
    TavrinTimerBlock* target = [[TavrinTimerBlock new] autorelease];
    target->block_ = Block_copy(block);
    return (CFRunLoopTimerRef)
        [[NSTimer alloc] initWithFireDate:[NSDate dateWithTimeIntervalSinceReferenceDate:date]
                                 interval:interval
                                   target:target
                                 selector:@selector(fired:)
                                 userInfo:nil
                                  repeats:interval > 0];
}

void CFRunLoopAddTimer(CFRunLoopRef, CFRunLoopTimerRef timer, CFRunLoopMode) {
    for (NSString* mode in commonModes()) [[NSRunLoop mainRunLoop] addTimer:(NSTimer*)timer forMode:mode];
}

void CFRunLoopTimerInvalidate(CFRunLoopTimerRef timer) { [(NSTimer*)timer invalidate]; }
}
