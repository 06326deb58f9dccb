// The list of what starts at login, as a list of one.
#import <ServiceManagement/ServiceManagement.h>

namespace {
SMAppServiceStatus shownStatus = SMAppServiceStatusNotRegistered;
} // namespace

@implementation SMAppService

+ (SMAppService*)mainAppService {
    static SMAppService* made = [[SMAppService alloc] init];
    return made;
}

+ (void)openSystemSettingsLoginItems {
}

- (SMAppServiceStatus)status {
    return shownStatus;
}

- (BOOL)registerAndReturnError:(NSError**)error {
    shownStatus = SMAppServiceStatusEnabled;
    return YES;
}

- (BOOL)unregisterAndReturnError:(NSError**)error {
    shownStatus = SMAppServiceStatusNotRegistered;
    return YES;
}

@end
