#include "answering_mac.h"

#include "platform/accessibility.h"
#include "platform/application.h"
#include "platform/screens.h"
#include "platform/status_items.h"
#include "platform/workspace.h"

#import <AppKit/AppKit.h>
#include <functional>

namespace {

const tavrin::Platform* answering = nullptr;

std::function<void()> posting(NSNotificationCenter* center, NSString* name) {
    return [center, name] { [center postNotificationName:name object:nil]; };
}

std::function<void()> posting(NSString* name) { return posting(NSNotificationCenter.defaultCenter, name); }

void tellOfApplications() {
    NSWorkspace* workspace = NSWorkspace.sharedWorkspace;
    [workspace willChangeValueForKey:@"runningApplications"];
    [workspace didChangeValueForKey:@"runningApplications"];
}

/// What changes on that Mac, told by the notices that macOS has for it.
tavrin::Subscription noticesOf(const tavrin::Platform& mac) {
    NSNotificationCenter* workspaceCenter = NSWorkspace.sharedWorkspace.notificationCenter;
    return tavrin::together(
        mac.accessibility.onTrustListChanged(
            posting(NSDistributedNotificationCenter.defaultCenter, @"com.apple.accessibility.api")),
        mac.application.onDidBecomeActive(posting(NSApplicationDidBecomeActiveNotification)),
        mac.application.onKeysReleased(posting(NSWindowDidResignKeyNotification)),
        mac.screens.onChanged(posting(NSApplicationDidChangeScreenParametersNotification)),
        mac.screens.onShownChanged(posting(workspaceCenter, NSWorkspaceActiveSpaceDidChangeNotification)),
        mac.statusItems.onDrawnChanged(posting(NSWindowDidChangeOcclusionStateNotification)),
        mac.workspace.onApplicationsChanged(tellOfApplications));
}

} // namespace

const tavrin::Platform* answeringMac() { return answering; }

AnswersFrom::AnswersFrom(const tavrin::Platform& mac) : mac_(mac), notices_(noticesOf(mac)) {
    answering = &mac_;
}

AnswersFrom::~AnswersFrom() {
    if (answering == &mac_) answering = nullptr;
}
