// What Foundation and the workspace have and GNUstep lacks.
#import <AppKit/AppKit.h>

#undef alphanumericCharacterSet
@implementation NSCharacterSet (TavrinShim)

+ (NSCharacterSet*)tavrinAlphanumeric {
    return [self alphanumericCharacterSet];
}

@end
@implementation NSString (TavrinShim)

- (NSString*)stringByFoldingWithOptions:(NSUInteger)options locale:(NSLocale*)locale {
    // GNUstep folds nothing; decomposing and leaving the marks out comes near enough.
    NSMutableString* folded = [NSMutableString string];
    NSString* apart = options & 128 ? [self decomposedStringWithCompatibilityMapping] : self;
    for (NSUInteger i = 0; i < apart.length; ++i) {
        const unichar unit = [apart characterAtIndex:i];
        if (unit < 0x300 || unit > 0x36F) [folded appendFormat:@"%C", unit];
    }
    return folded.lowercaseString;
}

@end
@implementation NSProcessInfo (TavrinShim)

- (NSTimeInterval)tavrinUptime {
    return static_cast<double>(clock_gettime_nsec_np(CLOCK_UPTIME_RAW)) / 1e9;
}

- (NSOperatingSystemVersion)operatingSystemVersion {
    return {15, 5, 0};
}

- (id<NSObject>)beginActivityWithOptions:(unsigned long long)options reason:(NSString*)reason {
    return self;
}

@end
@implementation NSWorkspace (TavrinShim)

- (NSURL*)URLForApplicationWithBundleIdentifier:(NSString*)identifier {
    return nil;
}

- (BOOL)accessibilityDisplayShouldReduceMotion {
    return NO;
}

- (NSRunningApplication*)menuBarOwningApplication {
    return NSRunningApplication.currentApplication;
}

@end
#undef runningApplicationWithProcessIdentifier
@implementation NSRunningApplication (TavrinShim)

+ (NSRunningApplication*)tavrinRunningWithProcess:(pid_t)process {
    return [self runningApplicationWithProcessIdentifier:process];
}

@end
