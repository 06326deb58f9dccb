// CFPreferences over those of the modelled Mac, or over GNUstep's user defaults, whose domains have no host.
#include "../answering_mac.h"
#include "../cf_types.h"
#include "../told.h"
#include "platform/defaults.h"

#include <CoreFoundation/CoreFoundation.h>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>

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

// The same for the modelled Mac. These conversions share nothing with those under test.

const tavrin::Defaults* modelled() { return answeringMac() ? &answeringMac()->defaults : nullptr; }

tavrin::DefaultsDomain modelledDomain(CFStringRef application, CFStringRef host) {
    std::string name = [(NSString*)application UTF8String];
    if (application == kCFPreferencesAnyApplication) name = ".GlobalPreferences";
    if (application == kCFPreferencesCurrentApplication) name = modelled()->ownDomain().name;
    return {name, host == kCFPreferencesCurrentHost ? tavrin::DefaultsDomain::Host::Current
                                                    : tavrin::DefaultsDomain::Host::Any};
}

id listFor(const tavrin::DefaultsValue& value);

id plain(bool flag) { return [NSNumber numberWithBool:flag]; }

id plain(std::int64_t integer) { return [NSNumber numberWithLongLong:integer]; }

id plain(double real) { return [NSNumber numberWithDouble:real]; }

id plain(const std::string& text) { return [NSString stringWithUTF8String:text.c_str()]; }

id plain(const tavrin::DefaultsData& data) { return [NSData dataWithBytes:data.data() length:data.size()]; }

id plain(const tavrin::DefaultsArray& values) {
    NSMutableArray* list = [NSMutableArray array];
    for (const auto& value : values) [list addObject:listFor(value)];
    return list;
}

id plain(const tavrin::DefaultsDictionary& values) {
    NSMutableDictionary* list = [NSMutableDictionary dictionary];
    for (const auto& [key, value] : values) [list setObject:listFor(value) forKey:plain(key)];
    return list;
}

id listFor(const tavrin::DefaultsValue& value) {
    return std::visit([](const auto& held) -> id { return plain(held); }, value.value);
}

tavrin::DefaultsValue valueOf(id list);

tavrin::DefaultsValue numberOf(NSNumber* number) {
    if (CFGetTypeID((CFTypeRef)number) == CFBooleanGetTypeID())
        return {static_cast<bool>([number boolValue])};
    const bool isReal = CFNumberIsFloatType((CFNumberRef)number);
    return isReal ? tavrin::DefaultsValue{[number doubleValue]}
                  : tavrin::DefaultsValue{static_cast<std::int64_t>([number longLongValue])};
}

tavrin::DefaultsValue valueOf(id list) {
    if ([list isKindOfClass:[NSNumber class]]) return numberOf(list);
    if ([list isKindOfClass:[NSString class]]) return {std::string([list UTF8String])};
    if ([list isKindOfClass:[NSData class]]) {
        const auto* bytes = static_cast<const std::byte*>([list bytes]);
        return {tavrin::DefaultsData(bytes, bytes + [(NSData*)list length])};
    }
    if ([list isKindOfClass:[NSArray class]]) {
        tavrin::DefaultsArray values;
        for (id member in list) values.push_back(valueOf(member));
        return {std::move(values)};
    }
    tavrin::DefaultsDictionary values;
    for (NSString* key in list) values[[key UTF8String]] = valueOf([list objectForKey:key]);
    return {std::move(values)};
}

} // namespace

extern "C" {

CFPropertyListRef CFPreferencesCopyValue(CFStringRef key, CFStringRef application, CFStringRef,
                                         CFStringRef host) {
    if (const auto* told = toldFor(__func__)) return (CFPropertyListRef)told->retained();
    if (modelled()) {
        const auto stored = modelled()->value(modelledDomain(application, host), [(NSString*)key UTF8String]);
        return stored ? [listFor(*stored) retain] : nullptr;
    }
    return [[domainOf(application, host) objectForKey:(NSString*)key] retain];
}

void CFPreferencesSetValue(CFStringRef key, CFPropertyListRef value, CFStringRef application, CFStringRef,
                           CFStringRef host) {
    if (modelled()) {
        auto& defaults = answeringMac()->defaults;
        const auto domain = modelledDomain(application, host);
        const char* name = [(NSString*)key UTF8String];
        return value ? defaults.set(domain, name, valueOf((id)value)) : defaults.remove(domain, name);
    }
    NSMutableDictionary* domain = [NSMutableDictionary dictionaryWithDictionary:domainOf(application, host)];
    if (value)
        [domain setObject:(id)value forKey:(NSString*)key];
    else
        [domain removeObjectForKey:(NSString*)key];
    replaceDomain(nameOf(application, host), domain);
}

CFArrayRef CFPreferencesCopyKeyList(CFStringRef application, CFStringRef, CFStringRef host) {
    if (const auto* told = toldFor(__func__)) return (CFArrayRef)told->retained();
    if (modelled()) {
        NSMutableArray* keys = [NSMutableArray array];
        for (const auto& key : modelled()->keys(modelledDomain(application, host)))
            [keys addObject:plain(key)];
        return (CFArrayRef)[keys retain];
    }
    return (CFArrayRef)[[domainOf(application, host) allKeys] retain];
}

Boolean CFPreferencesSynchronize(CFStringRef application, CFStringRef, CFStringRef host) {
    if (modelled()) {
        answeringMac()->defaults.synchronize(modelledDomain(application, host));
        return YES;
    }
    return [[NSUserDefaults standardUserDefaults] synchronize];
}
}
