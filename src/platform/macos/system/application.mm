#include "platform/macos/system/application.h"

#include "platform/macos/support/conversions.h"
#include "platform/macos/support/key_window.h"
#include "platform/macos/support/main_thread.h"
#include "platform/macos/support/notices.h"

#include <unistd.h>
#include <utility>

namespace tavrin::macos {

namespace {

static_assert(std::to_underlying(ActivationPolicy::Regular) == NSApplicationActivationPolicyRegular);
static_assert(std::to_underlying(ActivationPolicy::Accessory) == NSApplicationActivationPolicyAccessory);
static_assert(std::to_underlying(ActivationPolicy::Prohibited) == NSApplicationActivationPolicyProhibited);

std::string bundleText(NSString* key) {
    return textIn([NSBundle.mainBundle objectForInfoDictionaryKey:key]).value_or("");
}

/// Whether a window is on the screen that should be key, even if macOS hasn't made it so. At the level of
/// status items are only those and notices, which take no keys by themselves.
bool hasWindowForKeys() {
    for (NSWindow* window in NSApp.windows)
        if (window.visible && window.canBecomeKeyWindow && window.level != NSStatusWindowLevel) return true;
    return false;
}

} // namespace

ProcessIdentifier MacApplication::processIdentifier() const { return getpid(); }

std::string MacApplication::bundleIdentifier() const {
    return toString(NSBundle.mainBundle.bundleIdentifier);
}

std::string MacApplication::displayVersion() const {
    const auto version = bundleText(@"CFBundleShortVersionString");
    const auto build = bundleText(@"CFBundleVersion");
    return "Version " + version + (build.empty() || build == version ? "" : " (" + build + ")");
}

void MacApplication::setActivationPolicy(ActivationPolicy policy) {
    assertMainThread();
    [NSApp setActivationPolicy:static_cast<NSApplicationActivationPolicy>(policy)];
}

void MacApplication::activate() {
    assertMainThread();
    if (@available(macOS 14.0, *)) {
        [NSApp activate];
    } else {
        activateIgnoringOthers();
    }
}

/// Deprecated since macOS 14 and still obeyed, unlike the request that took its place.
void MacApplication::activateIgnoringOthers() {
    assertMainThread();
    [NSApp activateIgnoringOtherApps:YES];
}

bool MacApplication::isActive() const {
    assertMainThread();
    return NSApp.active;
}

Subscription MacApplication::onDidBecomeActive(std::function<void()> handler) {
    return observe(scheduler_, NSNotificationCenter.defaultCenter, NSApplicationDidBecomeActiveNotification,
                   std::move(handler));
}

/// While a menu is open the main run loop is in the mode that is named for tracking events.
bool MacApplication::takesKeys() const {
    assertMainThread();
    return !areKeysFree() || hasWindowForKeys() ||
           [NSRunLoop.mainRunLoop.currentMode isEqualToString:NSEventTrackingRunLoopMode];
}

Subscription MacApplication::onKeysReleased(std::function<void()> handler) {
    auto* center = NSNotificationCenter.defaultCenter;
    return together(observe(scheduler_, center, NSWindowDidResignKeyNotification, handler),
                    observe(scheduler_, center, NSMenuDidEndTrackingNotification, handler));
}

void MacApplication::showAboutPanel() {
    assertMainThread();
    [NSApp orderFrontStandardAboutPanel:nil];
}

void MacApplication::announce(std::string sentence) {
    assertMainThread();
    NSDictionary* words = @{
        NSAccessibilityAnnouncementKey : localized(sentence),
        NSAccessibilityPriorityKey : @(NSAccessibilityPriorityHigh),
    };
    NSAccessibilityPostNotificationWithUserInfo(NSApp, NSAccessibilityAnnouncementRequestedNotification,
                                                words);
}

/// AppKit asks the delegate inside this call and, when the end is put off, waits in a nested run loop; when
/// it isn't, the process exits without coming back. It starts from a timer: posted work would hold up what is
/// posted after it, and so the very answer that the nested loop waits for.
void MacApplication::terminate() {
    scheduler_.callAfter(Seconds{0}, [] { [NSApp terminate:nil]; });
}

/// Posted, because AppKit takes an answer only after the delegate has put the end off, and the program may
/// know its answer before that.
void MacApplication::replyToShouldTerminate(bool terminates) {
    scheduler_.post([terminates] { [NSApp replyToApplicationShouldTerminate:terminates]; });
}

} // namespace tavrin::macos
