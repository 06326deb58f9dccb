#include "platform/macos/views/view_keyboard.h"

#include "platform/macos/views/view_ground.h"
#include "platform/macos/views/view_press.h"
#include "platform/macos/views/view_surface.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace tavrin::macos {

namespace {

constexpr NSEventModifierFlags modifierKeys = NSEventModifierFlagShift | NSEventModifierFlagControl |
                                              NSEventModifierFlagOption | NSEventModifierFlagCommand;

constexpr unsigned short tabKey = 48;

/// The names that key actions use. Empty for other keys and for keys pressed with modifiers.
std::string_view keyName(NSEvent* event) {
    if ((event.modifierFlags & modifierKeys) != 0) return {};
    switch (event.keyCode) {
    case 36: // Return
    case 76: // Enter
        return "return";
    case 49:
        return "space";
    case 51:  // Delete
    case 117: // Forward Delete
        return "delete";
    case 53:
        return "escape";
    case 123:
        return "left";
    case 124:
        return "right";
    case 125:
        return "down";
    case 126:
        return "up";
    default:
        return {};
    }
}

void collectNodes(TavrinViewNode* node, NSMutableArray<TavrinViewNode*>* found) {
    if (!node) return;
    [found addObject:node];
    for (TavrinViewNode* child in node.childNodes) collectNodes(child, found);
}

TavrinViewNode* nodeAround(NSView* view) {
    while (view && ![view isKindOfClass:TavrinViewNode.class]) view = view.superview;
    return static_cast<TavrinViewNode*>(view);
}

/// The node that has the keyboard, or whose control has it; nil when neither is so.
TavrinViewNode* nodeWithFocus(NSWindow* window) {
    NSResponder* responder = window.firstResponder;
    return [responder isKindOfClass:NSView.class] ? nodeAround(static_cast<NSView*>(responder)) : nil;
}

} // namespace

NSArray<TavrinViewNode*>* nodesFrom(TavrinViewNode* root) {
    NSMutableArray<TavrinViewNode*>* found = [NSMutableArray array];
    collectNodes(root, found);
    return found;
}

TavrinViewNode* nodeAt(TavrinViewNode* root, const ViewPath& path) {
    TavrinViewNode* node = root;
    for (const auto index : path) {
        if (index >= node.childNodes.count) return nil;
        node = node.childNodes[index];
    }
    return node;
}

std::optional<ViewPath> focusedPath(TavrinViewNode* root) {
    ViewPath path;
    for (TavrinViewNode* node = nodeWithFocus(root.window); node; node = nodeAround(node.superview)) {
        if (node == root) {
            std::ranges::reverse(path);
            return path;
        }
        path.push_back([nodeAround(node.superview).childNodes indexOfObject:node]);
    }
    return std::nullopt;
}

NSView* keyViewOf(TavrinViewNode* node) {
    return isSystemControl([node shownView]) ? node.innerControl : node;
}

std::optional<ViewPath> focusAfterKey(TavrinViewNode* root, NSEvent* event) {
    if (!root) return std::nullopt;
    const auto key = keyName(event);
    const auto modifiers = event.modifierFlags & modifierKeys;
    const auto places = [=] { return focusPlacesOf([root shownView]); };
    if (key == "down") return focusInList(places(), focusedPath(root), FocusStep::Next);
    if (key == "up") return focusInList(places(), focusedPath(root), FocusStep::Previous);
    if (event.keyCode != tabKey || (modifiers & ~NSEventModifierFlagShift) != 0) return std::nullopt;
    return focusBeside(places(), focusedPath(root), modifiers == 0 ? FocusStep::Next : FocusStep::Previous);
}

bool performFocusedKeyAction(NSWindow* window, NSEvent* event) {
    if ([window.firstResponder isKindOfClass:NSText.class]) return false;
    TavrinViewNode* node = nodeWithFocus(window);
    while (node && ![node performKeyActionFor:event]) node = nodeAround(node.superview);
    return node != nil;
}

} // namespace tavrin::macos

@implementation TavrinViewNode (Keyboard)

- (BOOL)acceptsFirstResponder {
    return tavrin::takesFocusWhenPressed([self shownView]);
}

// AppKit asks this of what Tab may reach while the system's keyboard navigation is off.
- (BOOL)needsPanelToBecomeKey {
    return self.acceptsFirstResponder;
}

- (BOOL)canBecomeKeyView {
    return self.acceptsFirstResponder && !self.hiddenOrHasHiddenAncestor;
}

- (NSRect)focusRingMaskBounds {
    return self.bounds;
}

- (void)drawFocusRingMask {
    [[NSBezierPath bezierPathWithRoundedRect:self.bounds
                                     xRadius:tavrin::macos::groundRadius
                                     yRadius:tavrin::macos::groundRadius] fill];
}

- (void)keyDown:(NSEvent*)event {
    if ([self performKeyActionFor:event]) return;
    const bool hasFocus = tavrin::macos::nodeWithFocus(self.window) == self;
    // Here already, because a scroll view on the way up would take the arrow keys.
    if (hasFocus && [tavrin::macos::surfaceAround(self) moveFocusWith:event]) return;
    if (hasFocus && [self pressWithKey:event]) return;
    [super keyDown:event];
}

- (BOOL)performKeyActionFor:(NSEvent*)event {
    const auto key = tavrin::macos::keyName(event);
    const auto& actions = [self shownView].keyActions;
    const auto found = std::ranges::find(actions, key, &tavrin::KeyAction::key);
    if (found == actions.end() || !found->perform) return NO;
    if (event.isARepeat) return YES; // a held key acts once: by now another row may have the focus
    [tavrin::macos::surfaceAround(self) revealFocus];
    [self deliverWork:found->perform];
    return YES;
}

- (BOOL)pressWithKey:(NSEvent*)event {
    const auto key = tavrin::macos::keyName(event);
    if (!tavrin::macos::isPressable(self) || (key != "space" && key != "return")) return NO;
    if (event.isARepeat) return YES;
    [tavrin::macos::surfaceAround(self) revealFocus];
    [self pressNode];
    return YES;
}

@end
