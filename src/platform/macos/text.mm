#include "platform/macos/text.h"

#include "platform/macos/conversions.h"

namespace tavrin::macos {

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
