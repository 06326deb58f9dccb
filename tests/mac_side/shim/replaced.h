#pragma once

#include <objc/runtime.h>

/// Has a method run the function from now on; returns what it ran before.
template <class Function>
Function* tavrinReplaced(Method method, Function* by) {
    const IMP before = method_setImplementation(method, reinterpret_cast<IMP>(reinterpret_cast<void*>(by)));
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(before));
}
