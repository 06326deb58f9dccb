#pragma once

#include "platform/visibility_service.h"
#include "seam/system/program_side.h"

#include <utility>

namespace mac_model {

/// The service that takes lists of what the menu bar may show, as one life of the program's process finds it.
class ProgramVisibilityService final : public tavrin::VisibilityService {
  public:
    explicit ProgramVisibilityService(ProgramSide side) : side_(std::move(side)) {}

    bool isAvailable() override;
    std::unique_ptr<tavrin::VisibilityAssertion>
    make(std::span<const int> systemItems, std::span<const std::string> bundleIdentifiers) override;

  private:
    ProgramSide side_;
    std::optional<bool> isAvailable_; // as it was found first
};

} // namespace mac_model
