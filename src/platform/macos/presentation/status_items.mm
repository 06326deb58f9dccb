#include "platform/macos/presentation/status_items.h"

#include "platform/macos/support/conversions.h"
#include "platform/macos/support/main_thread.h"
#include "platform/macos/support/notices.h"

#include <utility>

using tavrin::StatusItemPress;
using tavrin::macos::Deliver;

namespace {

constexpr NSTimeInterval eventAgeMax = 2; // the main thread may be late

/// The right button, or the left one while Control is held. A press through Accessibility comes without an
/// event and is a left one: the event is then whatever the user did last.
bool isSecondary(NSEvent* event) {
    if (!event || NSProcessInfo.processInfo.systemUptime - event.timestamp > eventAgeMax) return false;
    if (event.type == NSEventTypeRightMouseUp) return true;
    return event.type == NSEventTypeLeftMouseUp && (event.modifierFlags & NSEventModifierFlagControl) != 0;
}

} // namespace

@interface TavrinStatusButtonTarget : NSObject
- (instancetype)initWithDelivery:(Deliver)deliver;
- (void)setAction:(std::function<void(StatusItemPress)>)action;
- (void)buttonPressed:(id)sender;
@end

@implementation TavrinStatusButtonTarget {
    Deliver deliver_;
    std::function<void(StatusItemPress)> action_;
}

- (instancetype)initWithDelivery:(Deliver)deliver {
    if ((self = [super init])) deliver_ = std::move(deliver);
    return self;
}

- (void)setAction:(std::function<void(StatusItemPress)>)action {
    action_ = std::move(action);
}

- (void)buttonPressed:(id)sender {
    if (!action_) return;
    const bool isRight = isSecondary(NSApp.currentEvent);
    deliver_([action = action_, press = isRight ? StatusItemPress::Right : StatusItemPress::Left] {
        action(press);
    });
}

@end

namespace tavrin::macos {

namespace {

// The bundle's own drawing of the control, for a system that lacks a symbol.
NSString* const standInImageName = @"MenuBarIcon";

NSImage* controlImage(const TemplateImage& wanted) {
    NSString* name = toNSString(wanted.name);
    NSString* description = localized(wanted.description);
    NSImage* image = wanted.source == TemplateImage::Source::System
                         ? [NSImage imageWithSystemSymbolName:name accessibilityDescription:description]
                         : [NSImage imageNamed:name];
    if (!image) image = [NSImage imageNamed:standInImageName];
    image.accessibilityDescription = description;
    [image setTemplate:YES];
    return image;
}

} // namespace

MacStatusItem::MacStatusItem(Scheduler& scheduler, double length)
    : gate_(scheduler)
    , item_([NSStatusBar.systemStatusBar statusItemWithLength:length])
    , target_([[TavrinStatusButtonTarget alloc] initWithDelivery:gate_.deliver()]) {
    assertMainThread();
    item_.button.imagePosition = NSImageOnly;
    item_.button.target = target_;
    item_.button.action = @selector(buttonPressed:);
    item_.button.enabled = NO; // until it has an action
    [item_.button sendActionOn:NSEventMaskLeftMouseUp | NSEventMaskRightMouseUp];
}

MacStatusItem::~MacStatusItem() {
    assertMainThread();
    decorations_.detach();
    item_.button.target = nil;
    [NSStatusBar.systemStatusBar removeStatusItem:item_];
}

void MacStatusItem::setLength(double length) { item_.length = length; }

double MacStatusItem::length() const { return item_.length; }

void MacStatusItem::setAutosaveName(std::string name) { item_.autosaveName = toNSString(name); }

void MacStatusItem::setVisible(bool visible) { item_.visible = visible; }

void MacStatusItem::setImage(TemplateImage image) { item_.button.image = controlImage(image); }

void MacStatusItem::setToolTip(std::string text) {
    item_.button.toolTip = text.empty() ? nil : localized(text);
}

void MacStatusItem::setAccessibilityLabel(std::string label) {
    item_.button.accessibilityLabel = label.empty() ? nil : localized(label);
}

// Assistive technology meets a control's cell, not the control.

void MacStatusItem::setAccessibilityValue(std::string value) {
    item_.button.cell.accessibilityValue = value.empty() ? nil : localized(value);
}

void MacStatusItem::setAccessibilityActions(std::vector<ViewAction> actions) {
    NSMutableArray<NSAccessibilityCustomAction*>* offered = [NSMutableArray array];
    for (auto& action : actions) {
        const auto deliver = gate_.deliver();
        const auto perform = std::move(action.perform); // a block would keep only the reference to it
        BOOL (^handler)(void) = ^{
            deliver(perform);
            return YES;
        };
        [offered addObject:[[NSAccessibilityCustomAction alloc] initWithName:localized(action.name)
                                                                     handler:handler]];
    }
    item_.button.cell.accessibilityCustomActions = offered;
    item_.button.accessibilityCustomActions = offered;
}

void MacStatusItem::setHiddenFromAccessibility(bool hidden) {
    item_.button.accessibilityHidden = hidden;
    item_.button.cell.accessibilityElement = !hidden;
}

void MacStatusItem::setAlpha(double alpha) { item_.button.alphaValue = alpha; }

void MacStatusItem::setDecorations(bool pillShown, double glow) {
    decorations_.attach(item_.button);
    decorations_.show(pillShown, glow);
}

void MacStatusItem::setAction(std::function<void(StatusItemPress)> action) {
    item_.button.enabled = action != nullptr;
    [target_ setAction:std::move(action)];
}

std::optional<Rect> MacStatusItem::frame() const {
    NSStatusBarButton* button = item_.button;
    if (!button.window) return std::nullopt;
    return rectOnScreen(button, button.bounds);
}

bool MacStatusItem::isDrawn() const {
    return (item_.button.window.occlusionState & NSWindowOcclusionStateVisible) != 0;
}

NSStatusBarButton* buttonOf(StatusItem& item) {
    const auto* known = dynamic_cast<MacStatusItem*>(&item);
    return known ? known->button() : nil;
}

NSRect rectInButton(NSStatusBarButton* button, Rect area) {
    return [button convertRect:[button.window convertRectFromScreen:toNSRect(area)] fromView:nil];
}

Rect rectOnScreen(NSStatusBarButton* button, NSRect area) {
    return toRect([button.window convertRectToScreen:[button convertRect:area toView:nil]]);
}

std::unique_ptr<StatusItem> MacStatusItems::create(double length) {
    return std::make_unique<MacStatusItem>(scheduler_, length);
}

// Of the windows of the process those of the items are hidden and shown most; the others do no harm here.
Subscription MacStatusItems::onDrawnChanged(std::function<void()> handler) {
    return observe(scheduler_, NSNotificationCenter.defaultCenter,
                   NSWindowDidChangeOcclusionStateNotification, std::move(handler));
}

} // namespace tavrin::macos
