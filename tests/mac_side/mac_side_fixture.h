#pragma once

#include "concurrency/scheduler.h"
#include "platform/macos/mac_platform.h"
#include "platform/macos/views/view_keyboard.h"
#include "platform/macos/views/view_node.h"
#include "platform/macos/views/view_surface.h"

#import <AppKit/AppKit.h>
#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace mac_side {

using namespace tavrin;

/// Lets the main run loop turn, with AppKit's events, until the condition holds; false when it hasn't after
/// five seconds.
bool until(const std::function<bool()>& condition);

/// Lets it turn for this long.
void turnFor(double seconds);

/// Runs the body with a pool of its own, so that what it has autoreleased has gone afterwards.
void pooled(const std::function<void()>& body);

/// The real Mac side on this machine's screen.
class MacSideTest : public testing::Test {
  protected:
    macos::MacPlatform mac;
    Platform platform = mac.platform();
};

NSWindow* windowTitled(const std::string& title);
TavrinSurfaceView* surfaceIn(NSWindow* window);

/// The nth node of this kind, in the order in which they stand; nil when there is none.
template <class Kind>
TavrinViewNode* nodeOf(NSWindow* window, int nth = 0) {
    for (TavrinViewNode* node in macos::nodesFrom(surfaceIn(window).rootNode))
        if (is<Kind>([node shownView]) && nth-- == 0) return node;
    return nil;
}

/// The control of the button with this title.
NSButton* buttonTitled(NSWindow* window, const std::string& title);

/// The node whose accessibility label or text this is.
TavrinViewNode* nodeNamed(NSWindow* window, const std::string& name);

/// The label of the node with the keyboard; empty when no node has it.
std::string focusedName(NSWindow* window);

struct Key {
    unsigned short code;
    NSString* characters;
    NSUInteger modifiers = 0;
    BOOL isRepeat = NO;
};

inline const Key downKey{125, @"\uF701"};
inline const Key upKey{126, @"\uF700"};
inline const Key tabKey{48, @"\t"};
inline const Key shiftTabKey{48, @"\u0019", NSShiftKeyMask};
inline const Key spaceKey{49, @" "};
inline const Key returnKey{36, @"\r"};
inline const Key escapeKey{53, @"\u001b"};
inline const Key deleteKey{51, @"\u007f"};

NSEvent* keyEvent(NSWindow* window, const Key& key);

/// Gives the key to the window, as AppKit does.
void press(NSWindow* window, const Key& key);

/// A mouse event in the middle of the view.
NSEvent* mouseAt(NSView* view, NSEventType type);

/// Presses and releases the mouse in the middle of a view that is no control: those follow the real mouse.
void clickAt(NSView* view);

} // namespace mac_side
