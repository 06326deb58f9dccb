#pragma once

#import <Foundation/Foundation.h>
#include <cstdint>
#include <string>

/// What a C function answers in place of its own answer, as the real one may at its worst: any status, and a
/// value of any type or none.
struct Told {
    std::int32_t status = 0;
    id value = nil;

    /// A new reference to the value, as the functions that copy hand out; null without a value.
    const void* retained() const;

    template <class Reference>
    std::int32_t give(Reference* place) const {
        *place = (Reference)retained();
        return status;
    }
};

/// A value of Accessibility's that holds an error, or a structure of a type that nobody asks for.
id tavrinValueOf(int type, std::int32_t error);

/// Has the function of this name answer so until the object goes. Main thread.
class Telling {
  public:
    Telling(std::string function, Told);
    Telling(const Telling&) = delete;
    Telling& operator=(const Telling&) = delete;
    ~Telling();

  private:
    std::string function_;
};

/// Null while the function answers by itself.
const Told* toldFor(const char* function);
