#include "app/app_delegate.h"
#include "platform/macos/mac_platform.h"
#include "platform/macos/presentation/main_menu.h"
#include "platform/macos/support/apple.h"

#include <memory>
#include <unistd.h>

@interface TavrinApplicationDelegate : NSObject <NSApplicationDelegate>
- (instancetype)initWithDelegate:(tavrin::ApplicationDelegate*)delegate;
@end

@implementation TavrinApplicationDelegate {
    tavrin::ApplicationDelegate* delegate_;
}

- (instancetype)initWithDelegate:(tavrin::ApplicationDelegate*)delegate {
    if ((self = [super init])) delegate_ = delegate;
    return self;
}

- (void)applicationDidFinishLaunching:(NSNotification*)notification {
    delegate_->applicationDidFinishLaunching();
}

- (BOOL)applicationShouldHandleReopen:(NSApplication*)sender hasVisibleWindows:(BOOL)hasVisibleWindows {
    return delegate_->applicationShouldHandleReopen(hasVisibleWindows);
}

- (BOOL)applicationShouldTerminateAfterLastWindowClosed:(NSApplication*)sender {
    return delegate_->applicationShouldTerminateAfterLastWindowClosed();
}

- (NSApplicationTerminateReply)applicationShouldTerminate:(NSApplication*)sender {
    const auto reply = delegate_->applicationShouldTerminate();
    return reply == tavrin::TerminateReply::Now ? NSTerminateNow : NSTerminateLater;
}

// The main menu's command; it comes here when no window takes it.
- (void)showSettings:(id)sender {
    delegate_->applicationShowSettings();
}

- (BOOL)applicationSupportsSecureRestorableState:(NSApplication*)application {
    return YES;
}

@end

namespace {

/// Whether this user has a running copy, from another place or by "open -n": two would drag each other's
/// items. What Info.plist can say of that would keep out the Mac's other users, too.
bool isAlreadyRunning() {
    NSString* bundle = NSBundle.mainBundle.bundleIdentifier;
    if (!bundle) return false;
    for (NSRunningApplication* running in
         [NSRunningApplication runningApplicationsWithBundleIdentifier:bundle])
        if (running.processIdentifier != getpid() && running.finishedLaunching) return true;
    return false;
}

/// The program is in the background when it drags an item, and counts on waits of hundredths of a second:
/// macOS must not put it to sleep meanwhile. An idle program costs nothing by this, and the computer may
/// still sleep.
id<NSObject> keepTimersPunctual() {
    return [NSProcessInfo.processInfo beginActivityWithOptions:NSActivityUserInitiatedAllowingIdleSystemSleep
                                                        reason:@"Moves menu bar items by timed events"];
}

} // namespace

/// Nothing made here is ever destroyed: the application ends by leaving the process. A status item that was
/// removed would lose its place in the menu bar.
int main() {
    @autoreleasepool {
        if (isAlreadyRunning()) return 0;
        NSApplication* application = NSApplication.sharedApplication;
        application.mainMenu = tavrin::macos::makeMainMenu();
        tavrin::macos::MacPlatform mac;
        const auto program = tavrin::makeAppDelegate(mac.platform());
        // NSApplication doesn't hold its delegate, and ARC would let go of it here.
        NS_VALID_UNTIL_END_OF_SCOPE TavrinApplicationDelegate* delegate =
            [[TavrinApplicationDelegate alloc] initWithDelegate:program.get()];
        NS_VALID_UNTIL_END_OF_SCOPE const id activity = keepTimersPunctual();
        application.delegate = delegate;
        [application run];
    }
    return 0;
}
