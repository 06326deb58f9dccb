#pragma once

#include "platform/status_items.h"

#import <AppKit/AppKit.h>

/// A status item of the Mac that answers.
NSStatusItem* tavrinModelledItem(CGFloat length);
/// Whether it was one, which has gone from there now.
bool tavrinRemovedModelled(NSStatusItem* item);

/// What stands behind it there; null when it has gone.
tavrin::StatusItem* modelledItemOf(NSStatusBarButton* button);
