// The workspace and the bundles: while a modelled Mac answers, its own.
#include "platform/workspace.h"

#include "answering_mac.h"
#include "platform/application.h"

#import <AppKit/AppKit.h>
#include <algorithm>
#include <string>
#include <string_view>

#undef mainBundle
#undef bundleWithPath
#undef runningApplicationWithProcessIdentifier

namespace {

tavrin::Workspace* modelled() { return answeringMac() ? &answeringMac()->workspace : nullptr; }

NSString* textFrom(std::string_view text) {
    return [[NSString alloc] initWithBytes:text.data() length:text.size() encoding:NSUTF8StringEncoding];
}

} // namespace

/// GNUstep draws nothing into a bitmap.
@interface TavrinIcon : NSImage
@end

@implementation TavrinIcon

- (void)drawInRect:(NSRect)rect {
    auto* drawn = (NSBitmapImageRep*)self.representations.firstObject;
    NSBitmapImageRep* target =
        NSGraphicsContext.currentContext.attributes[NSGraphicsContextDestinationAttributeName];
    for (NSInteger y = 0; y < std::min(drawn.pixelsHigh, target.pixelsHigh); ++y)
        for (NSInteger x = 0; x < std::min(drawn.pixelsWide, target.pixelsWide); ++x)
            [target setColor:[drawn colorAtX:x y:y] atX:x y:y];
}

@end

static NSImage* imageFrom(const std::optional<std::vector<std::byte>>& png) {
    return png ? [[TavrinIcon alloc] initWithData:[NSData dataWithBytes:png->data() length:png->size()]]
               : nil;
}

@interface TavrinRunningApplication : NSObject
@property pid_t processIdentifier;
@property(copy) NSString* bundleIdentifier;
@property(copy) NSString* localizedName;
@property NSApplicationActivationPolicy activationPolicy;
@end

@implementation TavrinRunningApplication

- (NSImage*)icon {
    return modelled() ? imageFrom(modelled()->iconPngOfProcess(self.processIdentifier)) : nil;
}

- (BOOL)activateWithOptions:(NSApplicationActivationOptions)options {
    return modelled() && modelled()->activate(self.processIdentifier);
}

@end

static TavrinRunningApplication* runningFrom(const tavrin::RunningApplication& application) {
    TavrinRunningApplication* running = [[TavrinRunningApplication alloc] init];
    running.processIdentifier = application.processIdentifier;
    if (application.bundleIdentifier) running.bundleIdentifier = textFrom(*application.bundleIdentifier);
    running.localizedName = textFrom(application.localizedName);
    running.activationPolicy =
        application.isRegular ? NSApplicationActivationPolicyRegular : NSApplicationActivationPolicyAccessory;
    return running;
}

static NSArray* runningOnMac() {
    NSMutableArray* all = [NSMutableArray array];
    for (const auto& application : modelled()->runningApplications())
        [all addObject:runningFrom(application)];
    return all;
}

@implementation NSRunningApplication (TavrinShim)

+ (NSRunningApplication*)tavrinRunningWithProcess:(pid_t)process {
    if (!modelled()) return [self runningApplicationWithProcessIdentifier:process];
    for (NSRunningApplication* running in runningOnMac())
        if (running.processIdentifier == process) return running;
    return nil;
}

@end

/// Made before GNUstep makes one of its own.
@interface TavrinWorkspace : NSWorkspace
@end

@implementation TavrinWorkspace

- (NSArray*)runningApplications {
    return modelled() ? runningOnMac() : [super runningApplications];
}

- (NSRunningApplication*)menuBarOwningApplication {
    if (!modelled()) return NSRunningApplication.currentApplication;
    const auto owner = modelled()->menuBarOwner();
    return owner ? [NSRunningApplication tavrinRunningWithProcess:*owner] : nil;
}

- (BOOL)accessibilityDisplayShouldReduceMotion {
    return modelled() && modelled()->isMotionReduced();
}

/// Every application that the Mac knows an icon of is in one folder.
- (NSURL*)URLForApplicationWithBundleIdentifier:(NSString*)identifier {
    if (!modelled() || !modelled()->iconPngOfBundle(identifier.UTF8String)) return nil;
    return [NSURL fileURLWithPath:[@"/Applications" stringByAppendingPathComponent:identifier]];
}

- (NSImage*)iconForFile:(NSString*)path {
    if (!modelled()) return [super iconForFile:path];
    return imageFrom(modelled()->iconPngOfBundle(path.lastPathComponent.UTF8String));
}

- (BOOL)openURL:(NSURL*)url {
    return modelled() && modelled()->openUrl(url.absoluteString.UTF8String);
}

// GNUstep's tells other processes, too.
- (NSNotificationCenter*)notificationCenter {
    static NSNotificationCenter* own = [[NSNotificationCenter alloc] init];
    return own;
}

@end

@implementation NSProcessInfo (TavrinShim)

- (NSTimeInterval)tavrinUptime {
    if (answeringMac()) return answeringMac()->scheduler.now().count();
    return static_cast<double>(clock_gettime_nsec_np(CLOCK_UPTIME_RAW)) / 1e9;
}

- (NSOperatingSystemVersion)operatingSystemVersion {
    const auto version = modelled() ? modelled()->operatingSystemVersion()
                                    : tavrin::OperatingSystemVersion{.major = 15, .minor = 5};
    return {version.major, version.minor, 0};
}

- (id<NSObject>)beginActivityWithOptions:(unsigned long long)options reason:(NSString*)reason {
    return self;
}

@end

@interface TavrinBundle : NSObject
@property(copy) NSString* bundleIdentifier;
@end

@implementation TavrinBundle

/// "Version 1.2 (34)" is made of two of its entries.
- (NSString*)objectForInfoDictionaryKey:(NSString*)key {
    const auto shown = answeringMac()->application.displayVersion();
    const auto words = [textFrom(shown) componentsSeparatedByString:@" "];
    if ([key isEqual:@"CFBundleShortVersionString"]) return words[1];
    return words.count < 3
               ? nil
               : [words[2] stringByTrimmingCharactersInSet:NSCharacterSet.punctuationCharacterSet];
}

- (NSString*)localizedStringForKey:(NSString*)key value:(NSString*)value table:(NSString*)table {
    return value;
}

@end

static NSBundle* bundleWithIdentifier(std::string_view identifier) {
    TavrinBundle* bundle = [[TavrinBundle alloc] init];
    bundle.bundleIdentifier = textFrom(identifier);
    return static_cast<NSBundle*>((id)bundle);
}

@implementation NSBundle (TavrinShim)

+ (NSBundle*)tavrinMainBundle {
    return answeringMac() ? bundleWithIdentifier(answeringMac()->application.bundleIdentifier())
                          : [self mainBundle];
}

+ (NSBundle*)tavrinBundleWithPath:(NSString*)path {
    if (!modelled()) return [self bundleWithPath:path];
    const auto identifier = modelled()->bundleIdentifierAt(path.UTF8String);
    return identifier ? bundleWithIdentifier(*identifier) : nil;
}

@end
