#include "concurrency/caught_exception.h"

#include <stdexcept>

namespace tavrin {

namespace {

/// Ends the program from a function that lets nothing out: what is uncaught is written down with its
/// sentence.
[[noreturn]] void refuseForeignException() {
    throw std::logic_error("An exception that isn't C++'s has left a task, which can't pass it on.");
}

} // namespace

std::exception_ptr caughtException() noexcept {
    auto caught = std::current_exception();
    if (!caught) refuseForeignException();
    return caught;
}

} // namespace tavrin
