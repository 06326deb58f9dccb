#pragma once

#include "platform/visibility_service.h"

namespace tavrin::macos {

class MacVisibilityService final : public VisibilityService {
  public:
    bool isAvailable() override;
    std::unique_ptr<VisibilityAssertion> make(std::span<const int> systemItems,
                                              std::span<const std::string> bundleIdentifiers) override;
};

} // namespace tavrin::macos
