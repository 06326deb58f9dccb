#include "platform/macos/views/view_controls.h"

#include "platform/macos/support/conversions.h"
#include "platform/macos/views/view_recorder.h"
#include "platform/macos/views/view_scroll.h"
#include "platform/macos/views/view_style.h"

#include <string>

@protocol TavrinControlTarget
- (void)pressControl:(id)sender;
@end

namespace tavrin::macos {

namespace {

NSString* const returnKey = @"\r";

NSTextField* makeLabel() {
    NSTextField* label = [NSTextField wrappingLabelWithString:@""];
    label.selectable = NO;
    return label;
}

NSImageView* makePicture() {
    NSImageView* picture = [[NSImageView alloc] initWithFrame:NSZeroRect];
    picture.imageScaling = NSImageScaleProportionallyUpOrDown;
    return picture;
}

NSProgressIndicator* makeWheel() {
    NSProgressIndicator* wheel = [[NSProgressIndicator alloc] initWithFrame:NSZeroRect];
    wheel.style = NSProgressIndicatorStyleSpinning;
    wheel.controlSize = NSControlSizeSmall;
    wheel.indeterminate = YES;
    [wheel startAnimation:nil];
    return wheel;
}

void dressLabel(NSTextField* label, const kinds::Text& text) {
    label.font = fontFor(text.style);
    label.textColor = colorFor(text.tone);
    label.alignment = text.isCentered ? NSTextAlignmentCenter : NSTextAlignmentNatural;
    label.stringValue = localized(text.text);
}

void dressSymbol(NSImageView* picture, const kinds::Symbol& symbol) {
    picture.image = symbolImage(symbol.name, symbol.pointSize);
    picture.contentTintColor = colorFor(symbol.tone);
}

/// The icon is asked for again only when it is another one: asking reads the disk.
void dressIcon(NSImageView* picture, const kinds::Icon& icon) {
    const auto application = icon.application.value_or(IconOfApplication{});
    NSString* identifier = toNSString(application.bundleIdentifier);
    if ([picture.identifier isEqualToString:identifier]) return;
    picture.identifier = identifier;
    picture.image = iconImage(application);
}

NSCellImagePosition imagePositionFor(const kinds::Button& button) {
    if (button.symbol.empty()) return NSNoImage;
    return button.title.empty() ? NSImageOnly : NSImageLeading;
}

void dressButton(NSButton* shown, const kinds::Button& button) {
    const bool isPlain = button.style == ButtonStyle::Plain;
    const bool isProminent = button.style == ButtonStyle::Prominent;
    shown.title = localized(button.title);
    shown.image = button.symbol.empty() ? nil : symbolImage(button.symbol, 0);
    shown.imagePosition = imagePositionFor(button);
    shown.imageHugsTitle = YES;
    shown.bordered = !isPlain;
    shown.bezelColor = isProminent ? NSColor.controlAccentColor : nil;
    shown.contentTintColor =
        isPlain ? (button.title.empty() ? NSColor.secondaryLabelColor : NSColor.controlAccentColor) : nil;
    shown.keyEquivalent = button.isDefault ? returnKey : @"";
    [shown sendActionOn:button.actsWhenPressed ? NSEventMaskLeftMouseDown : NSEventMaskLeftMouseUp];
}

void dressCheckbox(NSButton* box, const kinds::Checkbox& checkbox) {
    box.title = localized(checkbox.title);
    box.state = checkbox.isChecked ? NSControlStateValueOn : NSControlStateValueOff;
}

} // namespace

NSView* makeControl(const View& view, id target) {
    const SEL press = @selector(pressControl:);
    return visitKind(
        view, [](const kinds::Text&) -> NSView* { return makeLabel(); },
        [](const OneOf<kinds::Symbol, kinds::Icon> auto&) -> NSView* { return makePicture(); },
        [=](const kinds::Button&) -> NSView* {
            return [TavrinPushButton buttonWithTitle:@"" target:target action:press];
        },
        [=](const kinds::Checkbox&) -> NSView* {
            return [TavrinPushButton checkboxWithTitle:@"" target:target action:press];
        },
        [=](const kinds::ShortcutRecorder&) -> NSView* {
            return [TavrinRecorderButton buttonWithTitle:@"" target:target action:press];
        },
        [](const kinds::Progress&) -> NSView* { return makeWheel(); },
        [](const kinds::Scroll&) -> NSView* { return makeScrollView(); },
        [](const StackKind auto&) -> NSView* { return nil; },
        [](const GapKind auto&) -> NSView* { return nil; });
}

void dressControl(NSView* control, const View& view) {
    if (isSystemControl(view)) static_cast<NSControl*>(control).enabled = view.isEnabled;
    visitKind(
        view, [=](const kinds::Text& text) { dressLabel(static_cast<NSTextField*>(control), text); },
        [=](const kinds::Symbol& symbol) { dressSymbol(static_cast<NSImageView*>(control), symbol); },
        [=](const kinds::Icon& icon) { dressIcon(static_cast<NSImageView*>(control), icon); },
        [=](const kinds::Button& button) { dressButton(static_cast<NSButton*>(control), button); },
        [=](const kinds::Checkbox& checkbox) { dressCheckbox(static_cast<NSButton*>(control), checkbox); },
        [=](const kinds::ShortcutRecorder& recorder) {
            [static_cast<TavrinRecorderButton*>(control) followMaker:recorder.maker];
        },
        [](const kinds::Progress&) {}, [](const kinds::Scroll&) {}, [](const StackKind auto&) {},
        [](const GapKind auto&) {});
}

bool isDisplayOnly(const View& view) {
    return visitKind(
        view, [](const DisplayKind auto&) { return true; }, [](const ControlKind auto&) { return false; },
        [](const StackKind auto&) { return false; }, [](const kinds::Scroll&) { return false; },
        [](const GapKind auto&) { return false; });
}

} // namespace tavrin::macos
