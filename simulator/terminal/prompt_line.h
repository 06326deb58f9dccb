#pragma once

#include <expected>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace mac_model {

/// The command that a person typed at the prompt: the protocol's own JSON, or a short form such as
/// "press Open System Settings". The error is a sentence.
std::expected<nlohmann::json, std::string> parsePromptLine(std::string_view line);

/// The short forms, a line each.
std::string_view promptHelp();

} // namespace mac_model
