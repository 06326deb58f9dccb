#include "pins/menus/menu_ax.h"

#include <cmath>
#include <utility>

namespace tavrin::MenuAX {

namespace {

template <class T>
std::optional<T> valueAs(const AttributeResult& result) {
    const auto* value = result ? std::get_if<T>(&*result) : nullptr;
    if (!value) return std::nullopt;
    return *value;
}

// Bits of AXMenuItemCmdModifiers.
constexpr int shiftBit = 1;
constexpr int optionBit = 2;
constexpr int controlBit = 4;
constexpr int noCommandBit = 8;

} // namespace

std::optional<std::string> string(const AttributeResult& result) { return valueAs<std::string>(result); }

std::optional<AccessibilityElement> element(const AttributeResult& result) {
    return valueAs<AccessibilityElement>(result);
}

Elements children(const AttributeResult& result) { return valueAs<Elements>(result).value_or(Elements{}); }

bool boolean(const AttributeResult& result) { return valueAs<bool>(result).value_or(false); }

std::optional<int> integer(const AttributeResult& result) {
    constexpr double highest = 1e6; // far above anything that is asked for
    const auto number = valueAs<double>(result);
    if (!number || !(std::abs(*number) <= highest) || *number != std::trunc(*number)) return std::nullopt;
    return static_cast<int>(*number);
}

std::optional<std::string> label(std::span<const AttributeResult> candidates) {
    for (const auto& candidate : candidates)
        if (auto text = string(candidate); text && !text->empty()) return text;
    return std::nullopt;
}

std::optional<std::string> shortcut(const std::optional<std::string>& character,
                                    std::optional<int> modifiers) {
    if (!character || character->empty()) return std::nullopt;
    const int bits = modifiers.value_or(0);
    std::string text;
    if ((bits & controlBit) != 0) text += "⌃";
    if ((bits & optionBit) != 0) text += "⌥";
    if ((bits & shiftBit) != 0) text += "⇧";
    if ((bits & noCommandBit) == 0) text += "⌘";
    return text + *character;
}

std::optional<MenuReadFailure> endingFailure(AccessibilityError error) {
    if (error == AccessibilityError::CannotComplete) return MenuReadFailure::TimedOut;
    if (error == AccessibilityError::ApiDisabled) return MenuReadFailure::Denied;
    return std::nullopt;
}

std::expected<Results, MenuReadFailure> read(Accessibility& accessibility, const AccessibilityElement& of,
                                             std::span<const std::string_view> names) {
    auto results = accessibility.attributes(of, names);
    if (!results) {
        if (const auto failure = endingFailure(results.error())) return std::unexpected(*failure);
    }
    if (!results || results->size() != names.size())
        return Results(names.size(), std::unexpected(AccessibilityError::NoValue));
    for (const auto& result : *results) {
        if (result) continue;
        if (const auto failure = endingFailure(result.error())) return std::unexpected(*failure);
    }
    return std::move(*results);
}

std::expected<std::vector<std::string>, MenuReadFailure> actions(Accessibility& accessibility,
                                                                 const AccessibilityElement& of) {
    auto names = accessibility.actionNames(of);
    if (names) return std::move(*names);
    if (const auto failure = endingFailure(names.error())) return std::unexpected(*failure);
    return std::vector<std::string>{};
}

} // namespace tavrin::MenuAX
