// What Foundation has and GNUstep lacks.
#include "answering_mac.h"
#include "platform/text.h"

#import <AppKit/AppKit.h>

#undef alphanumericCharacterSet
#undef localizedCaseInsensitiveCompare
@implementation NSCharacterSet (TavrinShim)

+ (NSCharacterSet*)tavrinAlphanumeric {
    return [self alphanumericCharacterSet];
}

@end

namespace {

/// Folds and compares as the Mac that answers.
NSString* modelledFolding(NSString* text, NSUInteger options) {
    const auto& modelled = answeringMac()->text;
    const auto folded = options & NSWidthInsensitiveSearch
                            ? modelled.foldingCaseDiacriticsAndWidth(text.UTF8String)
                            : modelled.foldingCaseAndDiacritics(text.UTF8String);
    return [NSString stringWithUTF8String:folded.c_str()];
}

} // namespace

@implementation NSString (TavrinShim)

- (NSComparisonResult)tavrinCompare:(NSString*)other {
    if (!answeringMac()) return [self localizedCaseInsensitiveCompare:other];
    const auto order = answeringMac()->text.compareIgnoringCase(self.UTF8String, other.UTF8String);
    return order < 0 ? NSOrderedAscending : order > 0 ? NSOrderedDescending : NSOrderedSame;
}

- (NSString*)stringByFoldingWithOptions:(NSUInteger)options locale:(NSLocale*)locale {
    if (answeringMac()) return modelledFolding(self, options);
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
