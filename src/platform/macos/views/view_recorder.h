#pragma once

#include "platform/macos/support/apple.h"
#include "platform/macos/views/view_push_button.h"
#include "views/recorder_button.h"

#include <memory>

/// The push button of a recorder, and its host: what happens to it goes to the RecorderButton that the view
/// tree brought, at once and not through a gate.
@interface TavrinRecorderButton : TavrinPushButton

/// Makes the recorder the first time, and brings it in step with the tree every time.
- (void)followMaker:(const std::shared_ptr<const tavrin::RecorderButtonMaker>&)maker;

- (void)recorderWasClicked;

/// Ends the recorder without telling it of anything more.
- (void)letRecorderGo;

@end
