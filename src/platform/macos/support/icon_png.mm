#include "platform/macos/support/icon_png.h"

namespace tavrin::macos {

namespace {

constexpr NSInteger sidePixels = 32;
constexpr NSRect placeInPoints{{0, 0}, {16, 16}};

NSBitmapImageRep* emptyBitmap() {
    auto* bitmap = [[NSBitmapImageRep alloc] initWithBitmapDataPlanes:nullptr
                                                           pixelsWide:sidePixels
                                                           pixelsHigh:sidePixels
                                                        bitsPerSample:8
                                                      samplesPerPixel:4
                                                             hasAlpha:YES
                                                             isPlanar:NO
                                                       colorSpaceName:NSDeviceRGBColorSpace
                                                          bytesPerRow:0
                                                         bitsPerPixel:0];
    bitmap.size = placeInPoints.size;
    return bitmap;
}

void draw(NSImage* icon, NSGraphicsContext* context) {
    [NSGraphicsContext saveGraphicsState];
    NSGraphicsContext.currentContext = context;
    context.imageInterpolation = NSImageInterpolationHigh;
    [icon drawInRect:placeInPoints];
    [NSGraphicsContext restoreGraphicsState];
}

} // namespace

std::optional<std::vector<std::byte>> iconPng(NSImage* icon) {
    @autoreleasepool {
        NSBitmapImageRep* bitmap = emptyBitmap();
        NSGraphicsContext* context =
            bitmap ? [NSGraphicsContext graphicsContextWithBitmapImageRep:bitmap] : nil;
        if (!icon || !context) return std::nullopt;
        draw(icon, context);
        NSData* data = [bitmap representationUsingType:NSBitmapImageFileTypePNG properties:@{}];
        if (data.length == 0) return std::nullopt;
        const auto* bytes = static_cast<const std::byte*>(data.bytes);
        return std::vector(bytes, bytes + data.length);
    }
}

} // namespace tavrin::macos
