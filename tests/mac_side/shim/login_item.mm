// The list of what starts at login: the modelled Mac's, or a list of one.
#include "platform/login_item.h"

#include "answering_mac.h"

#import <ServiceManagement/ServiceManagement.h>
#include <expected>
#include <string>

namespace {

SMAppServiceStatus ownStatus = SMAppServiceStatusNotRegistered;

SMAppServiceStatus statusFor(tavrin::LoginItemState state) {
    switch (state) {
    case tavrin::LoginItemState::NotRegistered:
        return SMAppServiceStatusNotRegistered;
    case tavrin::LoginItemState::Enabled:
        return SMAppServiceStatusEnabled;
    case tavrin::LoginItemState::RequiresApproval:
        return SMAppServiceStatusRequiresApproval;
    case tavrin::LoginItemState::NotFound:
        return SMAppServiceStatusNotFound;
    }
}

BOOL told(const std::expected<void, std::string>& outcome, NSError** error) {
    if (outcome) return YES;
    NSString* sentence = [NSString stringWithUTF8String:outcome.error().c_str()];
    *error = [NSError errorWithDomain:@"SMAppServiceErrorDomain"
                                 code:1
                             userInfo:@{NSLocalizedDescriptionKey : sentence}];
    return NO;
}

} // namespace

@implementation SMAppService

+ (SMAppService*)mainAppService {
    static SMAppService* made = [[SMAppService alloc] init];
    return made;
}

+ (void)openSystemSettingsLoginItems {
    if (answeringMac()) answeringMac()->loginItem.openSettings();
}

- (SMAppServiceStatus)status {
    return answeringMac() ? statusFor(answeringMac()->loginItem.state()) : ownStatus;
}

- (BOOL)registerAndReturnError:(NSError**)error {
    if (answeringMac()) return told(answeringMac()->loginItem.registerApplication(), error);
    ownStatus = SMAppServiceStatusEnabled;
    return YES;
}

- (BOOL)unregisterAndReturnError:(NSError**)error {
    if (answeringMac()) return told(answeringMac()->loginItem.unregisterApplication(), error);
    ownStatus = SMAppServiceStatusNotRegistered;
    return YES;
}

@end
