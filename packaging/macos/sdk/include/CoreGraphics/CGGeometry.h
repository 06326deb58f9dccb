#pragma once

#include <CoreFoundation/CFCGTypes.h>
#include <CoreFoundation/CFDictionary.h>

CG_EXTERN const CGPoint CGPointZero;
CG_EXTERN const CGSize CGSizeZero;
CG_EXTERN const CGRect CGRectZero;
CG_EXTERN const CGRect CGRectNull;

CG_EXTERN bool CGRectMakeWithDictionaryRepresentation(CFDictionaryRef dictionary, CGRect *rect);
CG_EXTERN bool CGRectIsEmpty(CGRect rect);
CG_EXTERN bool CGRectContainsPoint(CGRect rect, CGPoint point);
CG_EXTERN bool CGRectIntersectsRect(CGRect first, CGRect second);
CG_EXTERN CGRect CGRectIntersection(CGRect first, CGRect second);

CF_INLINE CGPoint CGPointMake(CGFloat x, CGFloat y) {
    CGPoint point;
    point.x = x;
    point.y = y;
    return point;
}

CF_INLINE CGSize CGSizeMake(CGFloat width, CGFloat height) {
    CGSize size;
    size.width = width;
    size.height = height;
    return size;
}

CF_INLINE CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
    CGRect rect;
    rect.origin = CGPointMake(x, y);
    rect.size = CGSizeMake(width, height);
    return rect;
}
