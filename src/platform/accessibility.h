#pragma once

#include "base/geometry.h"
#include "concurrency/scheduler.h"
#include "concurrency/signal.h"

#include <cstddef>
#include <cstdint>
#include <expected>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tavrin {

using ProcessIdentifier = std::int32_t;

/// The system's own cases; the values are those of AXError in HIServices' AXError.h.
enum class AccessibilityError : std::int32_t {
    Failure = -25200,
    IllegalArgument = -25201,
    InvalidElement = -25202,
    CannotComplete = -25204, // the messaging time-out passed, or the process hangs or has exited
    AttributeUnsupported = -25205,
    ActionUnsupported = -25206,
    NotImplemented = -25208, // the process has no Accessibility support
    ApiDisabled = -25211,    // this process is not trusted
    NoValue = -25212,
};

/// A reference to an element of another process's Accessibility tree. References to one element are equal,
/// also after the element is gone. Cheap to copy; any thread.
class AccessibilityElement {
  public:
    class Reference {
      public:
        virtual ~Reference() = default;
        virtual bool equals(const Reference& other) const = 0;
        virtual std::size_t hash() const = 0;
    };

    explicit AccessibilityElement(std::shared_ptr<const Reference> reference)
        : reference_(std::move(reference)) {}

    const Reference& reference() const { return *reference_; }

    std::size_t hash() const { return reference_->hash(); }

    bool operator==(const AccessibilityElement& other) const { return reference_->equals(*other.reference_); }

  private:
    std::shared_ptr<const Reference> reference_;
};

/// What an attribute holds. A value of a type that is not listed comes as `std::monostate`; members of a list
/// that are no elements are left out, and a list of nothing else counts as not listed. Attributed text comes
/// as the text alone.
using AttributeValue = std::variant<std::monostate, bool, double, std::string, Point, Size, Rect,
                                    AccessibilityElement, std::vector<AccessibilityElement>>;
using AttributeResult = std::expected<AttributeValue, AccessibilityError>;

/// The Accessibility interface. Each operation that names an element is one message to the element's process,
/// which blocks the calling thread until the process answers or the reference's messaging time-out passes;
/// only `setMessagingTimeout`, `processOf`, `application` and the trust operations send none. Any thread for
/// messages, but keep them off the main thread; the trust operations belong to the main thread.
class Accessibility {
  public:
    virtual ~Accessibility() = default;

    /// Whether the user lets this process use Accessibility. Cheap, and may lag behind the user's change.
    virtual bool isTrusted() const = 0;

    /// Asks the user to let this process use Accessibility: macOS puts the process on the list of
    /// applications in System Settings, switched off, and shows a dialog of its own. Only after this call is
    /// there a switch.
    virtual void requestTrust() = 0;

    /// Fires when the list of trusted applications changes for any application; the trust value may still be
    /// the old one. On macOS this is the distributed notification "com.apple.accessibility.api".
    virtual Subscription onTrustListChanged(std::function<void()> handler) = 0;

    virtual AccessibilityElement application(ProcessIdentifier process) = 0;

    /// The process that answers for the element, which may be another than that of the element above it. None
    /// when the system doesn't tell.
    virtual std::optional<ProcessIdentifier> processOf(const AccessibilityElement& element) const = 0;

    /// Bounds the messages sent through this reference only: not through equal references, nor to children.
    virtual void setMessagingTimeout(const AccessibilityElement& element, Seconds timeout) = 0;

    virtual AttributeResult attribute(const AccessibilityElement& element, std::string_view name) = 0;

    /// Reads several attributes of one element in one message. The results stand in the order of the names;
    /// the outer error means that the message itself failed.
    virtual std::expected<std::vector<AttributeResult>, AccessibilityError>
    attributes(const AccessibilityElement& element, std::span<const std::string_view> names) = 0;

    virtual std::expected<std::vector<std::string>, AccessibilityError>
    actionNames(const AccessibilityElement& element) = 0;

    /// An error `CannotComplete` leaves open whether the action has happened.
    virtual std::expected<void, AccessibilityError> perform(const AccessibilityElement& element,
                                                            std::string_view action) = 0;

    /// Without an error the process has taken the value; what comes of it may take longer.
    virtual std::expected<void, AccessibilityError> setFlag(const AccessibilityElement& element,
                                                            std::string_view attribute, bool value) = 0;
};

} // namespace tavrin
