#pragma once

#include <CoreFoundation/CFCGTypes.h>
#include <CoreGraphics/CGEventTypes.h>
#include <CoreGraphics/CGRemoteOperation.h>

CG_EXTERN CGEventRef CGEventCreate(CGEventSourceRef source) CF_RETURNS_RETAINED;
CG_EXTERN CGEventRef CGEventCreateMouseEvent(CGEventSourceRef source, CGEventType type, CGPoint location,
                                             CGMouseButton button) CF_RETURNS_RETAINED;
CG_EXTERN CGEventRef CGEventCreateKeyboardEvent(CGEventSourceRef source, CGKeyCode key,
                                                bool keyDown) CF_RETURNS_RETAINED;
CG_EXTERN CGEventType CGEventGetType(CGEventRef event);
CG_EXTERN CGPoint CGEventGetLocation(CGEventRef event);
CG_EXTERN CGEventFlags CGEventGetFlags(CGEventRef event);
CG_EXTERN int64_t CGEventGetIntegerValueField(CGEventRef event, CGEventField field);
CG_EXTERN void CGEventSetFlags(CGEventRef event, CGEventFlags flags);
CG_EXTERN void CGEventSetIntegerValueField(CGEventRef event, CGEventField field, int64_t value);
CG_EXTERN void CGEventPost(CGEventTapLocation tap, CGEventRef event);
CG_EXTERN void CGEventPostToPid(pid_t process, CGEventRef event);
CG_EXTERN bool CGPreflightPostEventAccess(void);
