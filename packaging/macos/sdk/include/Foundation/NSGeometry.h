#pragma once

#include <CoreGraphics/CGGeometry.h>
#include <Foundation/NSObjCRuntime.h>

typedef CGPoint NSPoint;
typedef CGSize NSSize;
typedef CGRect NSRect;

typedef struct NSEdgeInsets {
    CGFloat top;
    CGFloat left;
    CGFloat bottom;
    CGFloat right;
} NSEdgeInsets;

typedef NS_ENUM(NSUInteger, NSRectEdge) {
    NSRectEdgeMinX = 0,
    NSRectEdgeMinY = 1,
    NSRectEdgeMaxX = 2,
    NSRectEdgeMaxY = 3,
};

FOUNDATION_EXPORT const NSPoint NSZeroPoint;
FOUNDATION_EXPORT const NSSize NSZeroSize;
FOUNDATION_EXPORT const NSRect NSZeroRect;

FOUNDATION_EXPORT BOOL NSEqualRects(NSRect first, NSRect second);
FOUNDATION_EXPORT BOOL NSIsEmptyRect(NSRect rect);
FOUNDATION_EXPORT NSRect NSInsetRect(NSRect rect, CGFloat dx, CGFloat dy);
FOUNDATION_EXPORT BOOL NSPointInRect(NSPoint point, NSRect rect);

NS_INLINE NSPoint NSMakePoint(CGFloat x, CGFloat y) {
    NSPoint point;
    point.x = x;
    point.y = y;
    return point;
}

NS_INLINE NSSize NSMakeSize(CGFloat width, CGFloat height) {
    NSSize size;
    size.width = width;
    size.height = height;
    return size;
}

NS_INLINE NSRect NSMakeRect(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
    NSRect rect;
    rect.origin = NSMakePoint(x, y);
    rect.size = NSMakeSize(width, height);
    return rect;
}

NS_INLINE CGFloat NSMaxX(NSRect rect) { return rect.origin.x + rect.size.width; }

NS_INLINE CGFloat NSMaxY(NSRect rect) { return rect.origin.y + rect.size.height; }

NS_INLINE CGFloat NSMinX(NSRect rect) { return rect.origin.x; }

NS_INLINE CGFloat NSMinY(NSRect rect) { return rect.origin.y; }

NS_INLINE CGFloat NSMidX(NSRect rect) { return rect.origin.x + rect.size.width * 0.5; }

NS_INLINE CGFloat NSMidY(NSRect rect) { return rect.origin.y + rect.size.height * 0.5; }

NS_INLINE CGFloat NSWidth(NSRect rect) { return rect.size.width; }

NS_INLINE CGFloat NSHeight(NSRect rect) { return rect.size.height; }

NS_INLINE NSEdgeInsets NSEdgeInsetsMake(CGFloat top, CGFloat left, CGFloat bottom, CGFloat right) {
    NSEdgeInsets insets;
    insets.top = top;
    insets.left = left;
    insets.bottom = bottom;
    insets.right = right;
    return insets;
}
