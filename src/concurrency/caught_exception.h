#pragma once

#include <exception>

namespace tavrin {

/// The exception that is being handled, never null. One that isn't C++'s, such as Objective-C's, can't be
/// kept: it ends the program with a sentence, because the task that waits would otherwise take up a value
/// that was never made.
std::exception_ptr caughtException() noexcept;

} // namespace tavrin
