#include "platform/macos/system/login_item.h"

#include "platform/macos/support/conversions.h"
#include "platform/macos/support/main_thread.h"

namespace tavrin::macos {

namespace {

std::expected<void, std::string> outcome(BOOL hasWorked, NSError* error) {
    if (hasWorked) return {};
    return std::unexpected(toString(error.localizedDescription));
}

} // namespace

LoginItemState MacLoginItem::state() const {
    assertMainThread();
    switch (SMAppService.mainAppService.status) {
    case SMAppServiceStatusNotRegistered:
        return LoginItemState::NotRegistered;
    case SMAppServiceStatusEnabled:
        return LoginItemState::Enabled;
    case SMAppServiceStatusRequiresApproval:
        return LoginItemState::RequiresApproval;
    case SMAppServiceStatusNotFound:
        return LoginItemState::NotFound;
    }
    return LoginItemState::NotFound; // a state that is younger than this program
}

std::expected<void, std::string> MacLoginItem::registerApplication() {
    assertMainThread();
    NSError* error = nil;
    const BOOL hasWorked = [SMAppService.mainAppService registerAndReturnError:&error];
    return outcome(hasWorked, error);
}

std::expected<void, std::string> MacLoginItem::unregisterApplication() {
    assertMainThread();
    NSError* error = nil;
    const BOOL hasWorked = [SMAppService.mainAppService unregisterAndReturnError:&error];
    return outcome(hasWorked, error);
}

void MacLoginItem::openSettings() {
    assertMainThread();
    [SMAppService openSystemSettingsLoginItems];
}

} // namespace tavrin::macos
