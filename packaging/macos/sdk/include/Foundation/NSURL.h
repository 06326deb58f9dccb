#pragma once

#include <Foundation/NSObject.h>

@interface NSURL : NSObject <NSSecureCoding, NSCopying>
@property (readonly, copy) NSString *absoluteString;
@property (readonly, copy) NSString *path;
@property (readonly, getter=isFileURL) BOOL fileURL;
+ (instancetype)URLWithString:(NSString *)text;
+ (NSURL *)fileURLWithPath:(NSString *)path;
@end
