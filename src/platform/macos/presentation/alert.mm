#include "platform/macos/presentation/alert.h"

#include "platform/macos/support/conversions.h"
#include "platform/macos/support/main_thread.h"

#include <utility>

namespace tavrin::macos {

namespace {

NSImage* imageOf(const IconOfApplication& icon) {
    NSURL* place =
        [NSWorkspace.sharedWorkspace URLForApplicationWithBundleIdentifier:toNSString(icon.bundleIdentifier)];
    return place ? [NSWorkspace.sharedWorkspace iconForFile:place.path] : nil;
}

NSAlert* makeAlert(const AlertQuestion& question) {
    NSAlert* alert = [[NSAlert alloc] init];
    alert.messageText = localized(question.messageText);
    alert.informativeText = localized(question.informativeText);
    for (const auto& button : question.buttons) [alert addButtonWithTitle:localized(button)];
    if (question.icon) alert.icon = imageOf(*question.icon);   // nil means the program's own
    alert.window.preventsApplicationTerminationWhenModal = NO; // it would hold up the user's logout
    return alert;
}

} // namespace

/// An alert's session blocks. It starts from a timer of its own: posted work would hold up all the work that
/// was posted after it until the alert is answered.
MacAlert::MacAlert(Scheduler& scheduler, const AlertQuestion& question,
                   std::function<void(std::size_t)> onAnswer)
    : gate_(scheduler)
    , alert_(makeAlert(question)) {
    assertMainThread();
    NSAlert* alert = alert_;
    const Deliver deliver = gate_.deliver();
    const auto isWanted = isWanted_;
    [NSTimer scheduledTimerWithTimeInterval:0
                                    repeats:NO
                                      block:^(NSTimer*) {
                                          if (!*isWanted) return;
                                          const NSModalResponse response = [alert runModal];
                                          if (response < NSAlertFirstButtonReturn) return;
                                          const auto button =
                                              static_cast<std::size_t>(response - NSAlertFirstButtonReturn);
                                          deliver([onAnswer, button] { onAnswer(button); });
                                      }];
}

MacAlert::~MacAlert() {
    assertMainThread();
    *isWanted_ = false;
    // The session's loop runs posted work, from which it can be aborted but not stopped.
    if (NSApp.modalWindow == alert_.window) [NSApp abortModal];
}

void MacAlert::bringToFront() {
    [alert_.window orderFrontRegardless]; // also when macOS declines to make this program active
    [alert_.window makeKeyAndOrderFront:nil];
}

} // namespace tavrin::macos
