#pragma once

#include "platform/accessibility.h"

#include <expected>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tavrin {

// Each function here is one message to another application and blocks its thread until the application
// answers or the time-out has passed: off the main thread.

/// The reason why asking another application ended early. Any other error only means that something isn't
/// there.
enum class ReadFailure {
    TimedOut,  // the application does not answer
    Denied,    // this process may not use Accessibility
    Abandoned, // nobody waits for the result any longer
};

/// The failure that the error stands for; none for one that only means that something isn't there.
std::optional<ReadFailure> endingFailure(AccessibilityError error);

using AccessibilityElements = std::vector<AccessibilityElement>;

/// The attributes that one message has told of an element. An attribute that wasn't asked for, that the
/// application can't tell, or whose value is of another type is absent.
class Attributes {
  public:
    Attributes() = default;
    /// The results stand in the order of the names; with another number of them all attributes are absent.
    Attributes(std::span<const std::string_view> names, std::vector<AttributeResult> results);

    template <class T>
    std::optional<T> as(std::string_view name) const {
        const auto* value = find(name);
        const auto* held = value ? std::get_if<T>(value) : nullptr;
        return held ? std::optional(*held) : std::nullopt;
    }

    bool isTrue(std::string_view name) const;
    std::optional<int> integer(std::string_view name) const;
    AccessibilityElements elements(std::string_view name) const;
    /// The first attribute that is text and not empty.
    std::optional<std::string> firstText(std::initializer_list<std::string_view> names) const;
    /// The frame, from position and size.
    std::optional<Rect> frame() const;

  private:
    const AttributeValue* find(std::string_view name) const;

    std::vector<std::pair<std::string_view, AttributeValue>> values_;
};

/// Reads several attributes in one message. An error in one slot of an answered message makes that attribute
/// absent; only the message's own error is a failure. The names outlive what is returned.
std::expected<Attributes, ReadFailure> read(Accessibility& accessibility, const AccessibilityElement& element,
                                            std::span<const std::string_view> names, Seconds timeout);

/// Reads one attribute; its own error counts as the message's.
template <class T>
std::expected<std::optional<T>, ReadFailure> readOne(Accessibility& accessibility,
                                                     const AccessibilityElement& element,
                                                     std::string_view name, Seconds timeout) {
    accessibility.setMessagingTimeout(element, timeout);
    const auto result = accessibility.attribute(element, name);
    if (result) {
        const auto* held = std::get_if<T>(&*result);
        return held ? std::optional(*held) : std::nullopt;
    }
    if (const auto failure = endingFailure(result.error())) return std::unexpected(*failure);
    return std::nullopt;
}

std::expected<std::vector<std::string>, ReadFailure>
readActions(Accessibility& accessibility, const AccessibilityElement& element, Seconds timeout);

} // namespace tavrin
