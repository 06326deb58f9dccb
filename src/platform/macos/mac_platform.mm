#include "platform/macos/mac_platform.h"

#include "platform/macos/support/conversions.h"

namespace tavrin::macos {

MacPlatform::MacPlatform() {
    scheduler_.onFault = [](std::string_view what) {
        NSLog(@"A piece of work has failed: %@", toNSString(what));
    };
}

Platform MacPlatform::platform() {
    return {.scheduler = scheduler_,
            .application = application_,
            .accessibility = accessibility_,
            .defaults = defaults_,
            .eventMonitors = eventMonitors_,
            .events = events_,
            .hotKeys = hotKeys_,
            .keyboard = keyboard_,
            .loginItem = loginItem_,
            .presentation = presentation_,
            .randomness = randomness_,
            .screens = screens_,
            .statusItems = statusItems_,
            .text = text_,
            .visibilityService = visibilityService_,
            .windowServer = windowServer_,
            .workspace = workspace_,
            .updater = nullptr};
}

} // namespace tavrin::macos
