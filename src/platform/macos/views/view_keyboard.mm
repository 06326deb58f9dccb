#include "platform/macos/views/view_keyboard.h"

#include "platform/macos/views/view_ground.h"
#include "platform/macos/views/view_press.h"

#include <algorithm>
#include <optional>
#include <string_view>

using tavrin::ViewKind;

namespace tavrin::macos {

namespace {

constexpr NSEventModifierFlags modifierKeys = NSEventModifierFlagShift | NSEventModifierFlagControl |
                                              NSEventModifierFlagOption | NSEventModifierFlagCommand;

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

template <class Matches>
TavrinViewNode* nodeAround(TavrinViewNode* node, const Matches& matches) {
    for (NSView* view = node.superview; view; view = view.superview) {
        if (![view isKindOfClass:TavrinViewNode.class]) continue;
        TavrinViewNode* around = static_cast<TavrinViewNode*>(view);
        if (matches(around.viewKind)) return around;
    }
    return nil;
}

TavrinViewNode* listAround(TavrinViewNode* node) {
    TavrinViewNode* scroll = nodeAround(node, [](ViewKind kind) { return kind == ViewKind::Scroll; });
    if (scroll) return scroll;
    return nodeAround(node, [](ViewKind kind) { return kind == ViewKind::Column || kind == ViewKind::Card; });
}

/// The next focusable node of the list; `from` itself may be none.
TavrinViewNode* nextInList(TavrinViewNode* list, TavrinViewNode* from, bool isDown) {
    TavrinViewNode* before = nil;
    bool isPast = from == nil;
    for (TavrinViewNode* node in nodesFrom(list)) {
        if (node == from) {
            if (!isDown) return before;
            isPast = true;
        } else if (node.acceptsFirstResponder) {
            if (isDown && isPast) return node;
            before = node;
        }
    }
    return isDown ? nil : before;
}

} // namespace

NSArray<TavrinViewNode*>* nodesFrom(TavrinViewNode* root) {
    NSMutableArray<TavrinViewNode*>* found = [NSMutableArray array];
    collectNodes(root, found);
    return found;
}

NSArray<TavrinViewNode*>* focusableNodes(TavrinViewNode* root) {
    NSMutableArray<TavrinViewNode*>* found = [NSMutableArray array];
    for (TavrinViewNode* node in nodesFrom(root))
        if (node.acceptsFirstResponder) [found addObject:node];
    return found;
}

TavrinViewNode* nodeWithFocus(NSWindow* window) {
    NSResponder* responder = window.firstResponder;
    if (![responder isKindOfClass:NSView.class]) return nil;
    for (NSView* view = static_cast<NSView*>(responder); view; view = view.superview)
        if ([view isKindOfClass:TavrinViewNode.class]) return static_cast<TavrinViewNode*>(view);
    return nil;
}

bool moveFocusInList(TavrinViewNode* root, TavrinViewNode* from, NSEvent* event) {
    const auto key = keyName(event);
    if (key != "up" && key != "down") return false;
    TavrinViewNode* list = from ? listAround(from) : root;
    if (focusableNodes(list).count == 0) return false;
    TavrinViewNode* next = nextInList(list, from, key == "down");
    if (!next) return true; // at the list's end
    [next.window makeFirstResponder:next];
    [next scrollRectToVisible:next.bounds];
    return true;
}

bool performFocusedKeyAction(NSWindow* window, NSEvent* event) {
    if ([window.firstResponder isKindOfClass:NSText.class]) return false;
    for (NSView* view = nodeWithFocus(window); view; view = view.superview) {
        if (![view isKindOfClass:TavrinViewNode.class]) continue;
        if ([static_cast<TavrinViewNode*>(view) performKeyActionFor:event]) return true;
    }
    return false;
}

} // namespace tavrin::macos

@implementation TavrinViewNode (Keyboard)

- (BOOL)acceptsFirstResponder {
    return [self shownView].isFocusable && [self shownView].isEnabled;
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
    TavrinViewNode* focused = tavrin::macos::nodeWithFocus(self.window);
    if (focused == self && tavrin::macos::moveFocusInList(nil, self, event)) return;
    if (focused == self && [self pressWithKey:tavrin::macos::keyName(event)]) return;
    [super keyDown:event];
}

- (BOOL)performKeyActionFor:(NSEvent*)event {
    const auto key = tavrin::macos::keyName(event);
    const auto& actions = [self shownView].keyActions;
    const auto found = std::ranges::find(actions, key, &tavrin::KeyAction::key);
    if (found == actions.end() || !found->perform) return NO;
    [self deliverWork:found->perform];
    return YES;
}

- (BOOL)pressWithKey:(std::string_view)key {
    if (!tavrin::macos::isPressable(self) || (key != "space" && key != "return")) return NO;
    [self pressNode];
    return YES;
}

@end
