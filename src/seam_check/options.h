#pragma once

#include "seam_check/runner.h"

#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin::seam_check {

struct Options {
    Scope scope = Scope::ReadingOnly;
    bool wantsHelp = false;
    /// Only looks whether this text is kept, for the process that has started this one.
    std::optional<std::string> expected;
};

/// The option that goes before the text.
inline constexpr std::string_view expectOption = "--expect-kept";

std::string_view helpText();

/// The arguments after the program's name. The error is one sentence for the user.
std::expected<Options, std::string> parseOptions(const std::vector<std::string_view>& arguments);

} // namespace tavrin::seam_check
