#pragma once

#include <Foundation/Foundation.h>

typedef NS_ENUM(NSInteger, SMAppServiceStatus) {
    SMAppServiceStatusNotRegistered,
    SMAppServiceStatusEnabled,
    SMAppServiceStatusRequiresApproval,
    SMAppServiceStatusNotFound
};

@interface SMAppService : NSObject
@property (class, readonly) SMAppService *mainAppService;
@property (readonly) SMAppServiceStatus status;
+ (void)openSystemSettingsLoginItems;
- (BOOL)registerAndReturnError:(NSError **)error;
- (BOOL)unregisterAndReturnError:(NSError **)error;
@end
