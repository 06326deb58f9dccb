#pragma once

#include <CoreFoundation/CFArray.h>

CF_EXPORT const CFStringRef kCFPreferencesAnyApplication;
CF_EXPORT const CFStringRef kCFPreferencesCurrentApplication;
CF_EXPORT const CFStringRef kCFPreferencesAnyHost;
CF_EXPORT const CFStringRef kCFPreferencesCurrentHost;
CF_EXPORT const CFStringRef kCFPreferencesCurrentUser;

CF_EXPORT CFPropertyListRef CFPreferencesCopyValue(CFStringRef key, CFStringRef application, CFStringRef user,
                                                   CFStringRef host) CF_RETURNS_RETAINED;
CF_EXPORT void CFPreferencesSetValue(CFStringRef key, CFPropertyListRef value, CFStringRef application,
                                     CFStringRef user, CFStringRef host);
CF_EXPORT CFArrayRef CFPreferencesCopyKeyList(CFStringRef application, CFStringRef user,
                                              CFStringRef host) CF_RETURNS_RETAINED;
CF_EXPORT Boolean CFPreferencesSynchronize(CFStringRef application, CFStringRef user, CFStringRef host);
