// The application: while a modelled Mac answers, its program there, which is another process than this one.
#include "platform/application.h"

#include "answering_mac.h"
#include "arc_runtime.h"

#import <AppKit/AppKit.h>

#undef getpid

namespace {

tavrin::Application* program() { return answeringMac() ? &answeringMac()->application : nullptr; }

} // namespace

extern "C" pid_t tavrinProcess(void) { return program() ? program()->processIdentifier() : getpid(); }

@interface TavrinKeyWindow : NSObject
@end

@implementation TavrinKeyWindow

- (NSInteger)level {
    return NSNormalWindowLevel;
}

@end

@interface TavrinApplication : NSApplication
@end

@implementation TavrinApplication

- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy {
    if (program()) program()->setActivationPolicy(static_cast<tavrin::ActivationPolicy>(policy));
    return YES;
}

- (void)yieldActivationToApplication:(NSRunningApplication*)application {
}

- (void)activate {
    program() ? program()->activate() : [super activateIgnoringOtherApps:YES];
}

- (void)activateIgnoringOtherApps:(BOOL)ignores {
    program() ? program()->activateIgnoringOthers() : [super activateIgnoringOtherApps:ignores];
}

- (BOOL)isActive {
    return program() ? program()->isActive() : [super isActive];
}

// Only asked for whether there is one, and at which level.
- (NSWindow*)keyWindow {
    static id stand = [[TavrinKeyWindow alloc] init];
    if (program()) return program()->takesKeys() ? stand : nil;
    return [super keyWindow];
}

// This process's own aren't on the Mac that answers.
- (NSArray*)windows {
    return program() ? @[] : [super windows];
}

/// While an item is pressed, the event that presses it.
- (NSEvent*)currentEvent {
    NSEvent* pressing = tavrinHung(self, "pressing");
    return pressing ? pressing : [super currentEvent];
}

- (void)orderFrontStandardAboutPanel:(id)sender {
    program() ? program()->showAboutPanel() : [super orderFrontStandardAboutPanel:sender];
}

- (void)terminate:(id)sender {
    program() ? program()->terminate() : [super terminate:sender];
}

- (void)replyToApplicationShouldTerminate:(BOOL)terminates {
    program() ? program()->replyToShouldTerminate(terminates)
              : [super replyToApplicationShouldTerminate:terminates];
}

@end

void NSAccessibilityPostNotificationWithUserInfo(id, NSString* notice, NSDictionary* information) {
    NSString* sentence = information[NSAccessibilityAnnouncementKey];
    if (program() && [notice isEqual:NSAccessibilityAnnouncementRequestedNotification])
        program()->announce(sentence.UTF8String);
}
