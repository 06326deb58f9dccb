#pragma once

#include "hiding/hiding_mechanism.h"

#include <expected>
#include <optional>
#include <string>

namespace tavrin {

/// Stands in where only macOS can hide items and can't be told which: everything stays shown, and each
/// request to hide is refused.
class UnavailableHiding final : public HidingMechanism {
  public:
    Task<bool> ensureLayout() override { co_return true; }

    Task<bool> prepare() override { co_return true; }

    std::optional<std::string> refusal() const override {
        return "This macOS build does not expose the menu bar visibility interface Tavrin relies on.";
    }

    void hideNow() override {}

    Task<std::expected<void, std::string>> confirmHidden() override {
        co_return std::expected<void, std::string>();
    }

    void didHide() override {}

    void reveal() override {}

    void adaptToScreens() override {}

    Task<bool> arrangeForApply() override { co_return false; }

    std::optional<std::string> obstacleToPlacing() const override { return std::nullopt; }

    bool placesByPosition() const override { return false; }
};

} // namespace tavrin
