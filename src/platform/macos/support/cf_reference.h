#pragma once

#include "platform/macos/support/apple.h"

#include <utility>

namespace tavrin::macos {

/// Owns one reference to a Core Foundation value, or nothing. ARC doesn't look after these. Any thread, as
/// far as the value itself allows it.
template <class Type>
class CfReference {
  public:
    CfReference() = default;

    /// Takes over the reference that a function named Create or Copy has given.
    static CfReference adopting(Type value) { return CfReference(value); }

    /// Adds a reference to a value that belongs to somebody else, as functions named Get give it.
    static CfReference retaining(Type value) {
        if (value) CFRetain(value);
        return CfReference(value);
    }

    CfReference(const CfReference& other) : CfReference(retaining(other.value_)) {}

    CfReference(CfReference&& other) noexcept : value_(std::exchange(other.value_, nullptr)) {}

    CfReference& operator=(CfReference other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }

    ~CfReference() {
        if (value_) CFRelease(value_);
    }

    explicit operator bool() const { return value_ != nullptr; }

    Type get() const { return value_; }

    /// For the out parameter of a function named Copy. What was held before is released.
    Type* out() {
        *this = CfReference();
        return &value_;
    }

  private:
    explicit CfReference(Type value) : value_(value) {}

    Type value_ = nullptr;
};

/// The value as its type when it is of that type, else null. The owner stays the same.
template <class Type>
Type cfCast(CFTypeRef value, CFTypeID type) {
    return value && CFGetTypeID(value) == type ? static_cast<Type>(value) : nullptr;
}

/// The object as the Core Foundation value that it is, owned by the result: an object that ARC owns may go
/// right after its last use as an object, while a function still works with the value.
template <class Type>
CfReference<Type> cfBridged(id object) {
    return CfReference<Type>::adopting(static_cast<Type>((__bridge_retained CFTypeRef)object));
}

} // namespace tavrin::macos
