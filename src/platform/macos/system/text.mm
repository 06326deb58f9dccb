#include "platform/macos/system/text.h"

#include "platform/macos/support/conversions.h"

namespace tavrin::macos {

namespace {

/// Unit by unit: a search by characters takes a mark for a part of the letter before it and may not find it.
NSString* replaced(NSString* text, NSString* mark, NSString* by) {
    return [text stringByReplacingOccurrencesOfString:mark
                                           withString:by
                                              options:NSLiteralSearch
                                                range:NSMakeRange(0, text.length)];
}

/// Folding the width of half-width kana leaves the sound marks after them half-width (by Core Foundation's
/// published source), which would not join them.
NSString* withUsualVoicedMarks(NSString* text) {
    return replaced(replaced(text, @"\uFF9E", @"\u3099"), @"\uFF9F", @"\u309A");
}

} // namespace

std::strong_ordering MacText::compareIgnoringCase(std::string_view left, std::string_view right) const {
    @autoreleasepool {
        return [toNSString(left) localizedCaseInsensitiveCompare:toNSString(right)] <=> NSOrderedSame;
    }
}

std::string MacText::foldingCaseAndDiacritics(std::string_view text) const {
    @autoreleasepool {
        return toString([toNSString(text)
            stringByFoldingWithOptions:NSCaseInsensitiveSearch | NSDiacriticInsensitiveSearch
                                locale:NSLocale.currentLocale]);
    }
}

std::string MacText::foldingCaseDiacriticsAndWidth(std::string_view text) const {
    @autoreleasepool {
        NSString* folded = [toNSString(text)
            stringByFoldingWithOptions:NSCaseInsensitiveSearch | NSDiacriticInsensitiveSearch |
                                       NSWidthInsensitiveSearch
                                locale:nil];
        return toString(withUsualVoicedMarks(folded).precomposedStringWithCanonicalMapping);
    }
}

std::string MacText::lowercased(std::string_view text) const {
    @autoreleasepool {
        return toString(toNSString(text).lowercaseString);
    }
}

std::string MacText::capitalized(std::string_view text) const {
    @autoreleasepool {
        return toString(toNSString(text).capitalizedString);
    }
}

std::string MacText::keepingAlphanumerics(std::string_view text) const {
    @autoreleasepool {
        NSCharacterSet* others = NSCharacterSet.alphanumericCharacterSet.invertedSet;
        return toString(
            [[toNSString(text) componentsSeparatedByCharactersInSet:others] componentsJoinedByString:@""]);
    }
}

std::string MacText::trimmed(std::string_view text) const {
    @autoreleasepool {
        return toString([toNSString(text)
            stringByTrimmingCharactersInSet:NSCharacterSet.whitespaceAndNewlineCharacterSet]);
    }
}

} // namespace tavrin::macos
