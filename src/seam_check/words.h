#pragma once

#include "base/geometry.h"
#include "concurrency/scheduler.h"
#include "platform/accessibility.h"

#include <cstddef>
#include <expected>
#include <optional>
#include <string>
#include <string_view>

namespace tavrin::seam_check {

/// A number without needless digits, such as "161.5".
std::string said(double number);
std::string said(Seconds duration);   // "0.05 s"
std::string said(Point point);        // "(3, 4)"
std::string said(const Rect& rect);   // "185 × 32 at (663, 0)"
std::string said(AccessibilityError); // "AXError -25205"

/// An absent value is said as "none".
template <class Value>
std::string said(const std::optional<Value>& value) {
    return value ? said(*value) : "none";
}

template <class Value>
std::string said(const std::expected<Value, AccessibilityError>& answer) {
    return answer ? "an answer" : said(answer.error());
}

std::string quoted(std::string_view text);

/// "1 screen", "2 screens".
std::string counted(std::size_t count, std::string_view noun);

} // namespace tavrin::seam_check
