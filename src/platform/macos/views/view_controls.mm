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

void dressLabel(NSTextField* label, const View& view) {
    label.font = fontFor(view.textStyle);
    label.textColor = colorFor(view.tone);
    label.alignment = view.isCentered ? NSTextAlignmentCenter : NSTextAlignmentNatural;
    label.stringValue = localized(view.text);
}

void dressSymbol(NSImageView* picture, const View& view) {
    picture.image = symbolImage(view.symbol, view.pointSize);
    picture.contentTintColor = colorFor(view.tone);
}

/// The icon is asked for again only when it is another one: asking reads the disk.
void dressIcon(NSImageView* picture, const View& view) {
    NSString* identifier = view.icon ? toNSString(view.icon->bundleIdentifier) : @"";
    if ([picture.identifier isEqualToString:identifier]) return;
    picture.identifier = identifier;
    picture.image = iconImage(view.icon.value_or(IconOfApplication{}));
}

NSCellImagePosition imagePositionFor(const View& button) {
    if (button.symbol.empty()) return NSNoImage;
    return button.text.empty() ? NSImageOnly : NSImageLeading;
}

void dressButton(NSButton* button, const View& view) {
    const bool isPlain = view.buttonStyle == ButtonStyle::Plain;
    const bool isProminent = view.buttonStyle == ButtonStyle::Prominent;
    button.title = localized(view.text);
    button.image = view.symbol.empty() ? nil : symbolImage(view.symbol, view.pointSize);
    button.imagePosition = imagePositionFor(view);
    button.imageHugsTitle = YES;
    button.bordered = !isPlain;
    button.bezelColor = isProminent ? NSColor.controlAccentColor : nil;
    button.contentTintColor =
        isPlain ? (view.text.empty() ? NSColor.secondaryLabelColor : NSColor.controlAccentColor) : nil;
    button.keyEquivalent = view.isDefaultButton ? returnKey : @"";
    button.enabled = view.isEnabled;
}

void dressCheckbox(NSButton* box, const View& view) {
    box.title = localized(view.text);
    box.state = view.isChecked ? NSControlStateValueOn : NSControlStateValueOff;
    box.enabled = view.isEnabled;
}

void dressRecorder(TavrinRecorderButton* button, const View& view) {
    button.enabled = view.isEnabled;
    [button followMaker:view.recorder];
}

} // namespace

NSView* makeControl(ViewKind kind, id target) {
    switch (kind) {
    case ViewKind::Text:
        return makeLabel();
    case ViewKind::Symbol:
    case ViewKind::Icon:
        return makePicture();
    case ViewKind::Button:
        return [NSButton buttonWithTitle:@"" target:target action:@selector(pressControl:)];
    case ViewKind::Checkbox:
        return [NSButton checkboxWithTitle:@"" target:target action:@selector(pressControl:)];
    case ViewKind::ShortcutRecorder:
        return [TavrinRecorderButton buttonWithTitle:@"" target:target action:@selector(pressControl:)];
    case ViewKind::Progress:
        return makeWheel();
    case ViewKind::Scroll:
        return makeScrollView();
    case ViewKind::Column:
    case ViewKind::Row:
    case ViewKind::Card:
    case ViewKind::Divider:
    case ViewKind::Spacer:
        return nil;
    }
    return nil;
}

void dressControl(NSView* control, const View& view) {
    switch (view.kind) {
    case ViewKind::Text:
        return dressLabel(static_cast<NSTextField*>(control), view);
    case ViewKind::Symbol:
        return dressSymbol(static_cast<NSImageView*>(control), view);
    case ViewKind::Icon:
        return dressIcon(static_cast<NSImageView*>(control), view);
    case ViewKind::Button:
        return dressButton(static_cast<NSButton*>(control), view);
    case ViewKind::Checkbox:
        return dressCheckbox(static_cast<NSButton*>(control), view);
    case ViewKind::ShortcutRecorder:
        return dressRecorder(static_cast<TavrinRecorderButton*>(control), view);
    default:
        return;
    }
}

bool isDisplayOnly(ViewKind kind) {
    return kind == ViewKind::Text || kind == ViewKind::Symbol || kind == ViewKind::Icon ||
           kind == ViewKind::Progress;
}

} // namespace tavrin::macos
