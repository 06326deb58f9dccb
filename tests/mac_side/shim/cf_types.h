#pragma once

#include <CoreFoundation/CFBase.h>
#import <Foundation/Foundation.h>

/// The type that a Foundation object has as a Core Foundation value; 0 for one that is none.
@interface NSObject (CoreFoundationType)
- (CFTypeID)cfTypeIdentifier;
@end

/// Each kind of value that the Mac side tells apart.
enum TavrinCFType : CFTypeID {
    TavrinCFString = 1,
    TavrinCFBoolean,
    TavrinCFNumber,
    TavrinCFData,
    TavrinCFArray,
    TavrinCFDictionary,
    TavrinCFAttributedString,
    TavrinCFNull,
    TavrinAXElement,
    TavrinAXValue,
};
