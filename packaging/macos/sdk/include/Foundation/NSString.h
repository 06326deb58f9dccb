#pragma once

#include <Foundation/NSObject.h>
#include <Foundation/NSRange.h>

@class NSArray<ObjectType>, NSCharacterSet, NSData, NSLocale;

typedef unsigned short unichar;
typedef NSUInteger NSStringEncoding;
enum : NSStringEncoding { NSUTF8StringEncoding = 4, NSUTF16LittleEndianStringEncoding = 0x94000100 };

typedef NS_OPTIONS(NSUInteger, NSStringCompareOptions) {
    NSCaseInsensitiveSearch = 1,
    NSLiteralSearch = 2,
    NSNumericSearch = 64,
    NSDiacriticInsensitiveSearch = 128,
    NSWidthInsensitiveSearch = 256,
};

@interface NSString : NSObject <NSCopying, NSMutableCopying, NSSecureCoding>
@property (readonly) NSUInteger length;
@property (readonly) const char *UTF8String NS_RETURNS_INNER_POINTER;
@property (readonly, getter=isAbsolutePath) BOOL absolutePath;
@property (readonly, copy) NSString *lastPathComponent;
@property (readonly, copy) NSString *lowercaseString;
@property (readonly, copy) NSString *capitalizedString;
@property (readonly, copy) NSString *precomposedStringWithCanonicalMapping;
@property (readonly) double doubleValue;
@property (readonly) NSInteger integerValue;
@property (readonly) BOOL boolValue;
+ (instancetype)string;
+ (instancetype)stringWithString:(NSString *)string;
+ (instancetype)stringWithCharacters:(const unichar *)characters length:(NSUInteger)length;
+ (instancetype)stringWithUTF8String:(const char *)bytes;
+ (instancetype)stringWithFormat:(NSString *)format, ... NS_FORMAT_FUNCTION(1, 2);
- (instancetype)initWithBytes:(const void *)bytes length:(NSUInteger)count encoding:(NSStringEncoding)encoding;
- (unichar)characterAtIndex:(NSUInteger)index;
- (void)getCharacters:(unichar *)buffer range:(NSRange)range;
- (BOOL)isEqualToString:(NSString *)other;
- (BOOL)hasPrefix:(NSString *)prefix;
- (BOOL)hasSuffix:(NSString *)suffix;
- (NSComparisonResult)localizedCaseInsensitiveCompare:(NSString *)other;
- (NSComparisonResult)localizedStandardCompare:(NSString *)other;
- (NSString *)stringByFoldingWithOptions:(NSStringCompareOptions)options locale:(NSLocale *)locale;
- (NSArray<NSString *> *)componentsSeparatedByCharactersInSet:(NSCharacterSet *)separators;
- (NSString *)stringByReplacingOccurrencesOfString:(NSString *)target withString:(NSString *)replacement;
- (NSString *)stringByReplacingOccurrencesOfString:(NSString *)target
                                        withString:(NSString *)replacement
                                           options:(NSStringCompareOptions)options
                                             range:(NSRange)searchRange;
- (NSString *)stringByTrimmingCharactersInSet:(NSCharacterSet *)characters;
- (NSData *)dataUsingEncoding:(NSStringEncoding)encoding allowLossyConversion:(BOOL)lossy;
@end

@interface NSMutableString : NSString
- (void)appendString:(NSString *)text;
@end
