#include "accessibility/attributes.h"

#include "platform/accessibility_names.h"

#include <algorithm>
#include <cmath>

namespace tavrin {

std::optional<ReadFailure> endingFailure(AccessibilityError error) {
    if (error == AccessibilityError::CannotComplete) return ReadFailure::TimedOut;
    if (error == AccessibilityError::ApiDisabled) return ReadFailure::Denied;
    return std::nullopt;
}

Attributes::Attributes(std::span<const std::string_view> names, std::vector<AttributeResult> results) {
    if (results.size() != names.size()) return;
    for (std::size_t i = 0; i < names.size(); ++i)
        if (results[i]) values_.emplace_back(names[i], std::move(*results[i]));
}

const AttributeValue* Attributes::find(std::string_view name) const {
    const auto found = std::ranges::find(values_, name, &decltype(values_)::value_type::first);
    return found == values_.end() ? nullptr : &found->second;
}

bool Attributes::isTrue(std::string_view name) const { return as<bool>(name).value_or(false); }

std::optional<int> Attributes::integer(std::string_view name) const {
    constexpr double highest = 1e6; // far above anything that is asked for
    const auto number = as<double>(name);
    if (!number || !(std::abs(*number) <= highest) || *number != std::trunc(*number)) return std::nullopt;
    return static_cast<int>(*number);
}

AccessibilityElements Attributes::elements(std::string_view name) const {
    return as<AccessibilityElements>(name).value_or(AccessibilityElements{});
}

std::optional<std::string> Attributes::firstText(std::initializer_list<std::string_view> names) const {
    for (const auto name : names)
        if (auto text = as<std::string>(name); text && !text->empty()) return text;
    return std::nullopt;
}

std::optional<Rect> Attributes::frame() const {
    const auto position = as<Point>(ax::position);
    const auto size = as<Size>(ax::size);
    if (!position || !size) return std::nullopt;
    return Rect::from(*position, *size);
}

std::expected<Attributes, ReadFailure> read(Accessibility& accessibility, const AccessibilityElement& element,
                                            std::span<const std::string_view> names, Seconds timeout) {
    accessibility.setMessagingTimeout(element, timeout);
    auto results = accessibility.attributes(element, names);
    if (results) return Attributes(names, std::move(*results));
    if (const auto failure = endingFailure(results.error())) return std::unexpected(*failure);
    return Attributes();
}

std::expected<std::vector<std::string>, ReadFailure>
readActions(Accessibility& accessibility, const AccessibilityElement& element, Seconds timeout) {
    accessibility.setMessagingTimeout(element, timeout);
    auto names = accessibility.actionNames(element);
    if (names) return std::move(*names);
    if (const auto failure = endingFailure(names.error())) return std::unexpected(*failure);
    return std::vector<std::string>{};
}

} // namespace tavrin
