#pragma once

#include <Foundation/Foundation.h>

typedef NSString *NSPasteboardType;

@class NSPasteboard;

@protocol NSPasteboardWriting <NSObject>
- (NSArray<NSPasteboardType> *)writableTypesForPasteboard:(NSPasteboard *)pasteboard;
- (id)pasteboardPropertyListForType:(NSPasteboardType)type;
@end

@interface NSPasteboard : NSObject
- (NSString *)stringForType:(NSPasteboardType)type;
@end
