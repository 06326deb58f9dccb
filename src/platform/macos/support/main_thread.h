#pragma once

#include <cassert>
#include <pthread.h>

namespace tavrin::macos {

/// Comes first in functions that AppKit allows on the main thread only.
inline void assertMainThread() { assert(pthread_main_np() != 0 && "belongs to the main thread"); }

} // namespace tavrin::macos
