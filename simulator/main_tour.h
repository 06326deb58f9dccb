#pragma once

#include "driver/modelled_mac.h"

#include <expected>
#include <filesystem>
#include <functional>
#include <memory>
#include <ostream>
#include <string>

namespace mac_model {

/// Boots a Mac with this profile folder.
using Boot =
    std::function<std::expected<std::unique_ptr<ModelledMac>, std::string>(const std::filesystem::path&)>;

/// Onboarding, first run, hide, reveal and quit, as a person goes through them on a Mac on which the program
/// was never started before; then the Mac is switched off and on again, and the program starts collapsed.
/// True only when the outcome of each step was seen.
bool playTavrinTour(const Boot&, const std::string& bundleIdentifier, std::ostream& out);

} // namespace mac_model
