// The one way in for Apple's headers: nothing outside platform/macos/ and the main_macos.mm includes it.
#pragma once

// Else Carbon makes macros of such words as check and require.
#define __ASSERT_MACROS_DEFINE_VERSIONS_WITHOUT_UNDERSCORES 0

#import <AppKit/AppKit.h>
#import <ApplicationServices/ApplicationServices.h>
#import <Carbon/Carbon.h>
#import <CoreFoundation/CoreFoundation.h>
#import <Foundation/Foundation.h>
#import <ServiceManagement/ServiceManagement.h>
