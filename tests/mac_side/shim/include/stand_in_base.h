#pragma once
#import <Foundation/Foundation.h>
#include <stdint.h>
#include <sys/types.h>
#define CF_EXPORT extern "C"
#define CG_EXTERN extern "C"
#define TAVRIN_SDK_EXTERN extern "C"
#define CF_INLINE static inline
#define CF_ENUM(type, name)                                                                                  \
    enum __attribute__((enum_extensibility(open))) name : type name;                                         \
    enum name : type
#define CF_OPTIONS(type, name)                                                                               \
    type name;                                                                                               \
    enum __attribute__((flag_enum, enum_extensibility(open))) : name
#define CF_BRIDGED_TYPE(type) __attribute__((objc_bridge(type)))
#define CF_BRIDGED_MUTABLE_TYPE(type) __attribute__((objc_bridge_mutable(type)))
#undef CF_RETURNS_RETAINED
#define CF_RETURNS_RETAINED __attribute__((cf_returns_retained))
typedef unsigned char Boolean;
#ifdef __x86_64__
typedef unsigned int boolean_t;
#else
typedef int boolean_t;
#endif
typedef unsigned char UInt8;
typedef unsigned short UInt16;
typedef unsigned int UInt32;
typedef signed int SInt32;
typedef unsigned long UniCharCount;
typedef unsigned short UniChar;
typedef unsigned long ItemCount;
typedef unsigned long ByteCount;
typedef UInt32 OSType;
typedef SInt32 OSStatus;
