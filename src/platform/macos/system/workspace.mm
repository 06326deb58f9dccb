#include "platform/macos/system/workspace.h"

#include "platform/macos/support/conversions.h"
#include "platform/macos/support/icon_png.h"
#include "platform/macos/support/main_thread.h"
#include "platform/macos/support/notices.h"

namespace tavrin::macos {

namespace {

RunningApplication applicationFrom(NSRunningApplication* running) {
    RunningApplication application;
    application.bundleIdentifier = textIn(running.bundleIdentifier);
    application.processIdentifier = running.processIdentifier;
    application.localizedName = toString(running.localizedName);
    application.isRegular = running.activationPolicy == NSApplicationActivationPolicyRegular;
    return application;
}

} // namespace

OperatingSystemVersion MacWorkspace::operatingSystemVersion() const {
    const auto version = NSProcessInfo.processInfo.operatingSystemVersion;
    return {static_cast<int>(version.majorVersion), static_cast<int>(version.minorVersion)};
}

bool MacWorkspace::isMotionReduced() const {
    return NSWorkspace.sharedWorkspace.accessibilityDisplayShouldReduceMotion;
}

std::vector<RunningApplication> MacWorkspace::runningApplications() const {
    assertMainThread();
    std::vector<RunningApplication> applications;
    for (NSRunningApplication* running in NSWorkspace.sharedWorkspace.runningApplications)
        applications.push_back(applicationFrom(running));
    return applications;
}

/// The workspace's notices of launches leave out applications without a Dock icon, those with most of the
/// status items; the property has them all.
Subscription MacWorkspace::onApplicationsChanged(std::function<void()> handler) {
    return observeProperty(scheduler_, NSWorkspace.sharedWorkspace, @"runningApplications",
                           std::move(handler));
}

std::optional<std::string> MacWorkspace::bundleIdentifierAt(std::string_view path) const {
    @autoreleasepool {
        NSString* place = toNSString(path);
        if (!place.absolutePath) return std::nullopt; // else it counts from the working directory
        return textIn([NSBundle bundleWithPath:place].bundleIdentifier);
    }
}

std::optional<std::vector<std::byte>> MacWorkspace::iconPngOfProcess(ProcessIdentifier process) const {
    assertMainThread();
    return iconPng([NSRunningApplication runningApplicationWithProcessIdentifier:process].icon);
}

std::optional<std::vector<std::byte>> MacWorkspace::iconPngOfBundle(std::string_view bundleIdentifier) const {
    assertMainThread();
    NSWorkspace* workspace = NSWorkspace.sharedWorkspace;
    NSURL* url = [workspace URLForApplicationWithBundleIdentifier:toNSString(bundleIdentifier)];
    return iconPng(url.path ? [workspace iconForFile:url.path] : nil);
}

std::optional<ProcessIdentifier> MacWorkspace::menuBarOwner() const {
    assertMainThread();
    NSRunningApplication* owner = NSWorkspace.sharedWorkspace.menuBarOwningApplication;
    return owner ? std::optional<ProcessIdentifier>(owner.processIdentifier) : std::nullopt;
}

bool MacWorkspace::activate(ProcessIdentifier process) {
    assertMainThread();
    NSRunningApplication* running = [NSRunningApplication runningApplicationWithProcessIdentifier:process];
    if (!running) return false;
    // Since macOS 14 the active application has to agree that another takes its place.
    if (@available(macOS 14.0, *)) [NSApp yieldActivationToApplication:running];
    // Its main and its key window come forward. All of them would change the order that the user has made.
    return [running activateWithOptions:static_cast<NSApplicationActivationOptions>(0)];
}

bool MacWorkspace::openUrl(std::string_view url) {
    assertMainThread();
    NSURL* link = [NSURL URLWithString:toNSString(url)];
    return link && [NSWorkspace.sharedWorkspace openURL:link];
}

} // namespace tavrin::macos
