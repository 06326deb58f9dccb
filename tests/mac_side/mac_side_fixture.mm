#include "mac_side/mac_side_fixture.h"

#include "platform/macos/support/conversions.h"

namespace mac_side {

namespace {

constexpr double patience = 5;

/// One event or one turn of the run loop.
void turn(NSDate* end) {
    @autoreleasepool {
        NSEvent* event = [NSApp nextEventMatchingMask:NSAnyEventMask
                                            untilDate:end
                                               inMode:NSDefaultRunLoopMode
                                              dequeue:YES];
        if (event) [NSApp sendEvent:event];
        [NSApp updateWindows];
    }
}

} // namespace

bool until(const std::function<bool()>& condition) {
    NSDate* end = [NSDate dateWithTimeIntervalSinceNow:patience];
    while (!condition()) {
        if (end.timeIntervalSinceNow < 0) return false;
        turn([NSDate dateWithTimeIntervalSinceNow:0.01]);
    }
    return true;
}

void turnFor(double seconds) {
    NSDate* end = [NSDate dateWithTimeIntervalSinceNow:seconds];
    while (end.timeIntervalSinceNow > 0) turn(end);
}

void pooled(const std::function<void()>& body) {
    @autoreleasepool {
        body();
    }
}

NSWindow* windowTitled(const std::string& title) {
    for (NSWindow* window in NSApp.windows)
        if (window.isVisible && macos::toString(window.title) == title) return window;
    return nil;
}

TavrinSurfaceView* surfaceIn(NSWindow* window) {
    NSView* content = window.contentView;
    if ([content isKindOfClass:TavrinSurfaceView.class]) return static_cast<TavrinSurfaceView*>(content);
    for (NSView* inside in content.subviews)
        if ([inside isKindOfClass:TavrinSurfaceView.class]) return static_cast<TavrinSurfaceView*>(inside);
    return nil;
}

NSButton* buttonTitled(NSWindow* window, const std::string& title) {
    for (TavrinViewNode* node in macos::nodesFrom(surfaceIn(window).rootNode)) {
        if (![node.innerControl isKindOfClass:NSButton.class]) continue;
        auto* button = static_cast<NSButton*>(node.innerControl);
        if (macos::toString(button.title) == title) return button;
    }
    return nil;
}

TavrinViewNode* nodeNamed(NSWindow* window, const std::string& name) {
    for (TavrinViewNode* node in macos::nodesFrom(surfaceIn(window).rootNode)) {
        const auto* text = std::get_if<kinds::Text>(&[node shownView].kind);
        if ([node shownView].accessibilityLabel == name || (text && text->text == name)) return node;
    }
    return nil;
}

std::string focusedName(NSWindow* window) {
    const auto path = macos::focusedPath(surfaceIn(window).rootNode);
    if (!path) return {};
    TavrinViewNode* node = macos::nodeAt(surfaceIn(window).rootNode, *path);
    return [node shownView].accessibilityLabel;
}

NSEvent* keyEvent(NSWindow* window, const Key& key) {
    return [NSEvent keyEventWithType:NSKeyDown
                            location:NSZeroPoint
                       modifierFlags:key.modifiers
                           timestamp:0
                        windowNumber:window.windowNumber
                             context:nil
                          characters:key.characters
         charactersIgnoringModifiers:key.characters
                           isARepeat:key.isRepeat
                             keyCode:key.code];
}

void press(NSWindow* window, const Key& key) {
    NSEvent* event = keyEvent(window, key);
    if (![window performKeyEquivalent:event]) [window sendEvent:event];
}

NSEvent* mouseAt(NSView* view, NSEventType type) {
    const NSRect visible = view.visibleRect;
    const NSPoint middle = NSMakePoint(NSMidX(visible), NSMidY(visible));
    return [NSEvent mouseEventWithType:type
                              location:[view convertPoint:middle toView:nil]
                         modifierFlags:0
                             timestamp:0
                          windowNumber:view.window.windowNumber
                               context:nil
                           eventNumber:0
                            clickCount:1
                              pressure:type == NSLeftMouseUp ? 0 : 1];
}

void clickAt(NSView* view) {
    [view.window sendEvent:mouseAt(view, NSLeftMouseDown)];
    [view.window sendEvent:mouseAt(view, NSLeftMouseUp)];
}

} // namespace mac_side
