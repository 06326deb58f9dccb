// The ground under the stand-in headers: the macros and base types that Apple's headers are written in. A stand-in
// declares only what Tavrin uses, as the real SDK declares it, so that the same sources compile against either. Identical
// typedefs may be repeated, which lets the C library's own headers stand beside this one.
#pragma once

#include <stdarg.h>
#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
#define TAVRIN_SDK_EXTERN extern "C"
#else
#define TAVRIN_SDK_EXTERN extern
#endif
#define CF_EXPORT TAVRIN_SDK_EXTERN
#define CG_EXTERN TAVRIN_SDK_EXTERN
#define FOUNDATION_EXPORT TAVRIN_SDK_EXTERN
#define APPKIT_EXTERN TAVRIN_SDK_EXTERN
#define CF_INLINE static inline
#define NS_INLINE static inline

#define CF_ENUM(type, name)                                                                                  \
    enum __attribute__((enum_extensibility(open))) name : type name;                                         \
    enum name : type
// In C++ the SDK makes a set of options a plain integer, so that options can be joined without a cast.
#define CF_OPTIONS(type, name)                                                                               \
    type name;                                                                                               \
    enum __attribute__((flag_enum, enum_extensibility(open))) : name
#define NS_ENUM(type, name) CF_ENUM(type, name)
#define NS_CLOSED_ENUM(type, name) CF_ENUM(type, name)
#define NS_OPTIONS(type, name) CF_OPTIONS(type, name)
#define NS_ERROR_ENUM(domain, name) CF_ENUM(NSInteger, name)
#define NS_TYPED_ENUM
#define NS_TYPED_EXTENSIBLE_ENUM
#define NS_STRING_ENUM
#define NS_SWIFT_NAME(name)

#define CF_BRIDGED_TYPE(type) __attribute__((objc_bridge(type)))
#define CF_BRIDGED_MUTABLE_TYPE(type) __attribute__((objc_bridge_mutable(type)))
#define CF_RETURNS_RETAINED __attribute__((cf_returns_retained))
#define CF_RETURNS_NOT_RETAINED __attribute__((cf_returns_not_retained))
#define NS_RETURNS_INNER_POINTER __attribute__((objc_returns_inner_pointer))
#define NS_RETURNS_NOT_RETAINED __attribute__((ns_returns_not_retained))
#define NS_DESIGNATED_INITIALIZER __attribute__((objc_designated_initializer))
#define NS_REQUIRES_SUPER __attribute__((objc_requires_super))
#define NS_NOESCAPE __attribute__((noescape))
#define NS_UNAVAILABLE __attribute__((unavailable))
#define NS_FORMAT_FUNCTION(text, arguments) __attribute__((format(__NSString__, text, arguments)))
#define NS_REQUIRES_NIL_TERMINATION __attribute__((sentinel(0, 1)))
#define NS_HEADER_AUDIT_BEGIN(...)
#define NS_HEADER_AUDIT_END(...)

// Names younger than the oldest macOS that Tavrin runs on carry their version, so that an unguarded use is refused.
#ifndef API_AVAILABLE
#define API_AVAILABLE(platform) __attribute__((availability(TAVRIN_SDK_##platform)))
#define TAVRIN_SDK_macos(version) macos, introduced = version
#endif
// As in `API_DEPRECATED("Use this instead.", macos(10.0, 14.0))`.
#ifndef API_DEPRECATED
#define API_DEPRECATED(text, platform) __attribute__((availability(TAVRIN_SDK_DEPRECATED_##platform, message = text)))
#define TAVRIN_SDK_DEPRECATED_macos(first, last) macos, introduced = first, deprecated = last
#endif

typedef int pid_t;
typedef unsigned char Boolean;
#ifdef __x86_64__
typedef unsigned int boolean_t;
#else
typedef int boolean_t;
#endif
typedef unsigned char UInt8;
typedef signed char SInt8;
typedef unsigned short UInt16;
typedef signed short SInt16;
typedef unsigned int UInt32;
typedef signed int SInt32;
typedef unsigned long long UInt64;
typedef signed long long SInt64;
typedef UInt16 UniChar;
typedef unsigned long UniCharCount;
typedef unsigned long ItemCount;
typedef unsigned long ByteCount;
typedef UInt32 FourCharCode;
typedef FourCharCode OSType;
typedef SInt32 OSStatus;
typedef SInt16 OSErr;
typedef double CGFloat;
