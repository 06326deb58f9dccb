// CFPreferences over GNUstep's user defaults, whose domains have no host.
#include <CoreFoundation/CoreFoundation.h>
#import <Foundation/Foundation.h>

extern "C" {
const CFStringRef kCFPreferencesAnyApplication = (CFStringRef) @"any application";
const CFStringRef kCFPreferencesCurrentApplication = (CFStringRef) @"current application";
const CFStringRef kCFPreferencesAnyHost = (CFStringRef) @"any host";
const CFStringRef kCFPreferencesCurrentHost = (CFStringRef) @"current host";
const CFStringRef kCFPreferencesCurrentUser = (CFStringRef) @"current user";
}

namespace {

NSString* ownName() {
    NSString* bundle = [[NSBundle mainBundle] bundleIdentifier];
    return bundle ? bundle : [[NSProcessInfo processInfo] processName];
}

NSString* nameOf(CFStringRef application, CFStringRef host) {
    NSString* name = (NSString*)application;
    if (application == kCFPreferencesAnyApplication) name = NSGlobalDomain;
    if (application == kCFPreferencesCurrentApplication) name = ownName();
    return host == kCFPreferencesCurrentHost ? [name stringByAppendingString:@".this-host"] : name;
}

NSDictionary* domainOf(CFStringRef application, CFStringRef host) {
    return [[NSUserDefaults standardUserDefaults] persistentDomainForName:nameOf(application, host)];
}

void replaceDomain(NSString* name, NSDictionary* domain) {
    NSUserDefaults* defaults = [NSUserDefaults standardUserDefaults];
    [defaults removePersistentDomainForName:name];
    if ([domain count] > 0) [defaults setPersistentDomain:domain forName:name];
}

} // namespace

extern "C" {

CFPropertyListRef CFPreferencesCopyValue(CFStringRef key, CFStringRef application, CFStringRef,
                                         CFStringRef host) {
    return [[domainOf(application, host) objectForKey:(NSString*)key] retain];
}

void CFPreferencesSetValue(CFStringRef key, CFPropertyListRef value, CFStringRef application, CFStringRef,
                           CFStringRef host) {
    NSMutableDictionary* domain = [NSMutableDictionary dictionaryWithDictionary:domainOf(application, host)];
    if (value)
        [domain setObject:(id)value forKey:(NSString*)key];
    else
        [domain removeObjectForKey:(NSString*)key];
    replaceDomain(nameOf(application, host), domain);
}

CFArrayRef CFPreferencesCopyKeyList(CFStringRef application, CFStringRef, CFStringRef host) {
    return (CFArrayRef)[[domainOf(application, host) allKeys] retain];
}

Boolean CFPreferencesSynchronize(CFStringRef, CFStringRef, CFStringRef) {
    return [[NSUserDefaults standardUserDefaults] synchronize];
}
}
