// What code compiled with ARC calls of its runtime, over GNUstep's reference counts.
#include "../arc_runtime.h"

#import <Foundation/Foundation.h>
#include <map>
#include <mutex>
#include <set>
#include <string>

namespace {

using Slots = std::map<id, std::set<id*>>;
using Hung = std::map<id, std::map<std::string, id>>;

// Made at first use and never destroyed: objects come before and go after every static value.
std::recursive_mutex& mutex() {
    static auto* made = new std::recursive_mutex;
    return *made;
}

Slots& slots() {
    static auto* made = new Slots;
    return *made;
}

Hung& hung() {
    static auto* made = new Hung;
    return *made;
}

void clearWeakReferences(id object) {
    const auto found = slots().find(object);
    if (found == slots().end()) return;
    for (id* slot : found->second) *slot = nil;
    slots().erase(found);
}

std::map<std::string, id> takeHungValues(id object) {
    const auto found = hung().find(object);
    if (found == hung().end()) return {};
    auto values = std::move(found->second);
    hung().erase(found);
    return values;
}

/// Stands in for NSObject's own. A weak reference that is read meanwhile finds either an object that lives or
/// none.
void releaseObject(id self, SEL) {
    std::map<std::string, id> values;
    {
        const std::lock_guard lock(mutex());
        if (!NSDecrementExtraRefCountWasZero(self)) return;
        clearWeakReferences(self);
        values = takeHungValues(self);
    }
    for (const auto& [name, value] : values) [value release];
    [self dealloc];
}

bool hasStarted = false;

} // namespace

@interface TavrinArcStart : NSObject
@end

@implementation TavrinArcStart

+ (void)load {
    hasStarted = true;
    method_setImplementation(class_getInstanceMethod([NSObject class], @selector(release)),
                             reinterpret_cast<IMP>(reinterpret_cast<void*>(releaseObject)));
}

@end

id tavrinHung(id object, const char* name) {
    const std::lock_guard lock(mutex());
    const auto found = hung().find(object);
    if (found == hung().end()) return nil;
    const auto value = found->second.find(name);
    return value == found->second.end() ? nil : [[value->second retain] autorelease];
}

void tavrinHang(id object, const char* name, id value) {
    id old = nil;
    {
        const std::lock_guard lock(mutex());
        id& place = hung()[object][name];
        old = place;
        place = [value retain];
    }
    [old release];
}

extern "C" {

// Static initialisers run before there are classes.
void* objc_autoreleasePoolPush(void) { return hasStarted ? [NSAutoreleasePool new] : nil; }

void objc_autoreleasePoolPop(void* pool) { [(id)pool release]; }

id objc_retain(id object) { return [object retain]; }

void objc_release(id object) { [object release]; }

id objc_autorelease(id object) { return [object autorelease]; }

id objc_retainAutorelease(id object) { return [[object retain] autorelease]; }

id objc_autoreleaseReturnValue(id object) { return [object autorelease]; }

id objc_retainAutoreleaseReturnValue(id object) { return [[object retain] autorelease]; }

id objc_retainAutoreleasedReturnValue(id object) { return [object retain]; }

id objc_unsafeClaimAutoreleasedReturnValue(id object) { return object; }

void objc_storeStrong(id* place, id value) {
    id old = *place;
    if (old == value) return;
    *place = [value retain];
    [old release];
}

id objc_storeWeak(id* place, id value) {
    const std::lock_guard lock(mutex());
    if (*place) slots()[*place].erase(place);
    *place = value;
    if (value) slots()[value].insert(place);
    return value;
}

id objc_initWeak(id* place, id value) {
    *place = nil;
    return objc_storeWeak(place, value);
}

void objc_destroyWeak(id* place) { objc_storeWeak(place, nil); }

id objc_loadWeakRetained(id* place) {
    const std::lock_guard lock(mutex());
    return [*place retain];
}

id objc_loadWeak(id* place) { return [objc_loadWeakRetained(place) autorelease]; }

void objc_copyWeak(id* to, id* from) {
    const std::lock_guard lock(mutex());
    objc_initWeak(to, *from);
}

void objc_moveWeak(id* to, id* from) {
    objc_copyWeak(to, from);
    objc_destroyWeak(from);
}
}
