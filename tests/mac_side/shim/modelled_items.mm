// Status items of the Mac that answers: what is set at a button of AppKit's is set there, and a press there
// is an event that the button sends its action for.
#include "modelled_items.h"

#include "answering_mac.h"
#include "arc_runtime.h"
#include "platform/screens.h"
#include "replaced.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

using tavrin::StatusItemPress;

namespace {

std::string textOf(NSString* text) { return text ? text.UTF8String : ""; }

NSRect upwards(const tavrin::Rect& rect) {
    const auto screens = answeringMac() ? answeringMac()->screens.screens() : std::vector<tavrin::Screen>{};
    const double height = screens.empty() ? 0 : screens.front().frame.height;
    return NSMakeRect(rect.x, height - rect.maxY(), rect.width, rect.height);
}

NSEvent* eventFor(StatusItemPress press) {
    return [NSEvent mouseEventWithType:press == StatusItemPress::Right ? NSRightMouseUp : NSLeftMouseUp
                              location:NSZeroPoint
                         modifierFlags:0
                             timestamp:NSProcessInfo.processInfo.systemUptime
                          windowNumber:0
                               context:nil
                           eventNumber:0
                            clickCount:1
                              pressure:1];
}

std::vector<tavrin::ViewAction> actionsFrom(NSArray* offered) {
    std::vector<tavrin::ViewAction> actions;
    for (NSAccessibilityCustomAction* action in offered)
        actions.push_back({textOf(action.name), [action] { action.handler(); }});
    return actions;
}

} // namespace

@interface TavrinItemWindow : NSObject {
  @public
    NSRect frame_;
    bool isDrawn_;
}
@end

@implementation TavrinItemWindow

- (NSRect)convertRectToScreen:(NSRect)rect {
    return NSOffsetRect(rect, frame_.origin.x, frame_.origin.y);
}

- (NSUInteger)occlusionState {
    return isDrawn_ ? NSWindowOcclusionStateVisible : 0;
}

@end

@interface TavrinItemCell : NSButtonCell
@end

@interface TavrinItemButton : NSStatusBarButton {
  @public
    std::unique_ptr<tavrin::StatusItem> item_; // none once it was removed
}
@end

@implementation TavrinItemCell

- (void)setAccessibilityValue:(id)value {
    auto* button = (TavrinItemButton*)self.controlView;
    if (button->item_) button->item_->setAccessibilityValue(textOf(value));
}

@end

@implementation TavrinItemButton

+ (Class)cellClass {
    return TavrinItemCell.class;
}

- (NSWindow*)window {
    const auto frame = item_ ? item_->frame() : std::nullopt;
    if (!frame) return nil;
    TavrinItemWindow* window = [[TavrinItemWindow alloc] init];
    window->frame_ = upwards(*frame);
    window->isDrawn_ = item_->isDrawn();
    return static_cast<NSWindow*>((id)window);
}

- (NSRect)bounds {
    const auto frame = item_ ? item_->frame() : std::nullopt;
    return frame ? NSMakeRect(0, 0, frame->width, frame->height) : NSZeroRect;
}

// It fills its window.
- (NSRect)convertRect:(NSRect)rect toView:(NSView*)view {
    return rect;
}

- (void)setImage:(NSImage*)image {
    NSString* symbol = image ? tavrinHung(image, "symbol") : nil;
    if (item_ && symbol)
        item_->setImage({.name = textOf(symbol), .description = textOf(image.accessibilityDescription)});
}

- (void)setToolTip:(NSString*)text {
    if (item_) item_->setToolTip(textOf(text));
}

- (void)setAccessibilityLabel:(NSString*)text {
    if (item_) item_->setAccessibilityLabel(textOf(text));
}

- (void)setAccessibilityHidden:(BOOL)hidden {
    if (item_) item_->setHiddenFromAccessibility(hidden);
}

- (void)setAccessibilityCustomActions:(NSArray*)actions {
    if (item_) item_->setAccessibilityActions(actionsFrom(actions));
}

- (void)setAlphaValue:(CGFloat)alpha {
    if (item_) item_->setAlpha(alpha);
}

- (void)setEnabled:(BOOL)enabled {
    if (!item_) return;
    __weak TavrinItemButton* weakSelf = self;
    item_->setAction(enabled ? [weakSelf](StatusItemPress press) { [weakSelf tavrinPress:press]; }
                             : std::function<void(StatusItemPress)>());
}

- (void)tavrinPress:(StatusItemPress)press {
    @autoreleasepool {
        tavrinHang(NSApp, "pressing", eventFor(press));
        [NSApp sendAction:self.action to:self.target from:self];
        tavrinHang(NSApp, "pressing", nil);
    }
}

- (void)tavrinDecorated:(double)glow {
    bool isPillShown = false;
    for (NSView* view in self.superview.subviews)
        if ([view isKindOfClass:objc_getClass("TavrinActivePillView")]) isPillShown = !view.isHidden;
    if (item_) item_->setDecorations(isPillShown, glow);
}

@end

@interface TavrinModelledItem : NSStatusItem {
  @public
    NSView* ground_; // with the button, and the decorations behind it
    TavrinItemButton* button_;
}
@end

@implementation TavrinModelledItem

- (NSStatusBarButton*)button {
    return button_;
}

- (CGFloat)length {
    return button_->item_ ? button_->item_->length() : 0;
}

- (void)setLength:(CGFloat)length {
    if (button_->item_) button_->item_->setLength(length);
}

- (void)setAutosaveName:(NSString*)name {
    if (button_->item_) button_->item_->setAutosaveName(textOf(name));
}

- (void)setVisible:(BOOL)visible {
    if (button_->item_) button_->item_->setVisible(visible);
}

@end

namespace {

void (*setAlphaBefore)(id, SEL, CGFloat);

/// The glow is set last of the decorations.
void setAlpha(id self, SEL selector, CGFloat alpha) {
    setAlphaBefore(self, selector, alpha);
    if (![self isKindOfClass:objc_getClass("TavrinCoralGlowView")]) return;
    for (NSView* view in [self superview].subviews)
        if ([view isKindOfClass:TavrinItemButton.class]) [(TavrinItemButton*)view tavrinDecorated:alpha];
}

} // namespace

@implementation TavrinModelledItem (Glow)

+ (void)load {
    setAlphaBefore =
        tavrinReplaced(class_getInstanceMethod(objc_getClass("NSView"), @selector(setAlphaValue:)), setAlpha);
}

@end

NSStatusItem* tavrinModelledItem(CGFloat length) {
    TavrinModelledItem* item = [[TavrinModelledItem alloc] init];
    item->ground_ = [[NSView alloc] initWithFrame:NSZeroRect];
    item->button_ = [[TavrinItemButton alloc] initWithFrame:NSZeroRect];
    [item->button_.cell setControlView:item->button_];
    item->button_->item_ = answeringMac()->statusItems.create(length);
    [item->ground_ addSubview:item->button_];
    return item;
}

tavrin::StatusItem* modelledItemOf(NSStatusBarButton* button) {
    if (![button isKindOfClass:TavrinItemButton.class]) return nullptr;
    return static_cast<TavrinItemButton*>(button)->item_.get();
}

bool tavrinRemovedModelled(NSStatusItem* item) {
    if (![item isKindOfClass:TavrinModelledItem.class]) return false;
    static_cast<TavrinItemButton*>(item.button)->item_.reset();
    return true;
}
