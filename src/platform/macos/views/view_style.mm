#include "platform/macos/views/view_style.h"

#include "platform/macos/support/conversions.h"

namespace tavrin::macos {

namespace {

NSFont* preferred(NSFontTextStyle style) { return [NSFont preferredFontForTextStyle:style options:@{}]; }

NSFont* heavier(NSFontTextStyle style, NSFontWeight weight) {
    return [NSFont systemFontOfSize:preferred(style).pointSize weight:weight];
}

NSImage* systemSymbol(NSString* name) {
    return [NSImage imageWithSystemSymbolName:name accessibilityDescription:nil];
}

} // namespace

// In points with the default setting: body 13, title 22, heading 15, caption 11.
NSFont* fontFor(TextStyle style) {
    switch (style) {
    case TextStyle::Body:
        return preferred(NSFontTextStyleBody);
    case TextStyle::Title:
        return heavier(NSFontTextStyleTitle1, NSFontWeightBold);
    case TextStyle::Heading:
        return heavier(NSFontTextStyleTitle3, NSFontWeightSemibold);
    case TextStyle::Caption:
        return preferred(NSFontTextStyleSubheadline);
    }
    return preferred(NSFontTextStyleBody);
}

NSColor* colorFor(Tone tone) {
    switch (tone) {
    case Tone::Primary:
        return NSColor.labelColor;
    case Tone::Secondary:
        return NSColor.secondaryLabelColor;
    case Tone::Accent:
        return NSColor.controlAccentColor;
    case Tone::Positive:
        return NSColor.systemGreenColor;
    case Tone::Warning:
        return NSColor.systemOrangeColor;
    }
    return NSColor.labelColor;
}

NSImage* symbolImage(const std::string& name, double pointSize) {
    NSImage* symbol = systemSymbol(toNSString(name));
    if (!symbol) symbol = systemSymbol(@"questionmark.square.dashed");
    const double size = pointSize > 0 ? pointSize : preferred(NSFontTextStyleBody).pointSize;
    auto* configuration = [NSImageSymbolConfiguration configurationWithPointSize:size
                                                                          weight:NSFontWeightRegular];
    return [symbol imageWithSymbolConfiguration:configuration];
}

NSImage* iconImage(const IconOfApplication& icon) {
    NSWorkspace* workspace = NSWorkspace.sharedWorkspace;
    NSURL* url = [workspace URLForApplicationWithBundleIdentifier:toNSString(icon.bundleIdentifier)];
    return url.path ? [workspace iconForFile:url.path] : symbolImage("app.dashed", 0);
}

} // namespace tavrin::macos
