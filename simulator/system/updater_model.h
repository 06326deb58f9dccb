#pragma once

#include "platform/updates.h"

#include <functional>

namespace mac_model {

/// The update framework in the program's bundle; what it looks for is always up to date.
class UpdaterModel final : public tavrin::Updater {
  public:
    explicit UpdaterModel(bool isAutomatic) : isAutomatic_(isAutomatic) {}

    bool checksAutomatically() const override { return isAutomatic_; }

    bool downloadsAutomatically() const override { return isAutomatic_; }

    void setAutomatic(bool checksAndDownloads) override { isAutomatic_ = checksAndDownloads; }

    void checkNow() override {
        ++checks_;
        if (onCheck) onCheck();
    }

    int checks() const { return checks_; }

    /// Shows the person what was found.
    std::function<void()> onCheck;

  private:
    bool isAutomatic_;
    int checks_ = 0;
};

} // namespace mac_model
