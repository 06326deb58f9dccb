#pragma once

#include "platform/accessibility.h"

#include <expected>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin {

/// Why a reading of another application ended early. Anything else only means that something isn't there.
enum class MenuReadFailure {
    TimedOut,  // the application does not answer
    Denied,    // this process may not use Accessibility
    Abandoned, // nobody waits for the result any more
};

/// Attributes of menus, and what their values say. A missing attribute gives none, nothing or false.
namespace MenuAX {

/// Bounds each message to an application.
inline constexpr Seconds messagingTimeout{1};
inline constexpr Seconds messagingTimeoutWhileOpening{0.25};

inline constexpr std::string_view subrole = "AXSubrole";
inline constexpr std::string_view value = "AXValue";
inline constexpr std::string_view enabled = "AXEnabled";
inline constexpr std::string_view frontmost = "AXFrontmost";
inline constexpr std::string_view shownMenu = "AXShownMenuUIElement";
inline constexpr std::string_view commandCharacter = "AXMenuItemCmdChar";
inline constexpr std::string_view commandModifiers = "AXMenuItemCmdModifiers";
inline constexpr std::string_view markCharacter = "AXMenuItemMarkChar";

inline constexpr std::string_view menuRole = "AXMenu";
inline constexpr std::string_view menuItemRole = "AXMenuItem";
inline constexpr std::string_view checkBoxRole = "AXCheckBox";

inline constexpr std::string_view pressAction = "AXPress";
inline constexpr std::string_view showMenuAction = "AXShowMenu";
inline constexpr std::string_view cancelAction = "AXCancel";

using Elements = std::vector<AccessibilityElement>;
using Results = std::vector<AttributeResult>;

std::optional<std::string> string(const AttributeResult& result);
std::optional<AccessibilityElement> element(const AttributeResult& result);
Elements children(const AttributeResult& result);
bool boolean(const AttributeResult& result);
/// The whole number that it holds.
std::optional<int> integer(const AttributeResult& result);

/// The first that is text and not empty.
std::optional<std::string> label(std::span<const AttributeResult> candidates);

/// "⌃⌥⇧⌘" as far as they belong to a key equivalent, and its character; none without one. `modifiers` are the
/// bits of AXMenuItemCmdModifiers.
std::optional<std::string> shortcut(const std::optional<std::string>& character,
                                    std::optional<int> modifiers);

std::optional<MenuReadFailure> endingFailure(AccessibilityError error);

/// Several attributes in one message. An application that can't tell of any of them gives that many missing
/// ones.
std::expected<Results, MenuReadFailure> read(Accessibility& accessibility, const AccessibilityElement& of,
                                             std::span<const std::string_view> names);

/// The element's action names, in one message.
std::expected<std::vector<std::string>, MenuReadFailure> actions(Accessibility& accessibility,
                                                                 const AccessibilityElement& of);

} // namespace MenuAX

} // namespace tavrin
