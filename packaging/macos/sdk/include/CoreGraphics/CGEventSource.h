#pragma once

#include <CoreFoundation/CFDate.h>
#include <CoreGraphics/CGEventTypes.h>

CG_EXTERN CGEventSourceRef CGEventSourceCreate(CGEventSourceStateID state) CF_RETURNS_RETAINED;
CG_EXTERN uint32_t CGEventSourceCounterForEventType(CGEventSourceStateID state, CGEventType type);
CG_EXTERN void CGEventSourceSetLocalEventsFilterDuringSuppressionState(CGEventSourceRef source,
                                                                       CGEventFilterMask filter,
                                                                       CGEventSuppressionState state);
CG_EXTERN void CGEventSourceSetLocalEventsSuppressionInterval(CGEventSourceRef source, CFTimeInterval seconds);
