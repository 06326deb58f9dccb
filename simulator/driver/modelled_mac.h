#pragma once

#include "concurrency/virtual_scheduler.h"
#include "driver/driver.h"
#include "mac/mac.h"
#include "mac/screen_content.h"
#include "vocabulary/vocabulary.h"

#include <expected>
#include <memory>
#include <string>

namespace mac_model {

/// A modelled Mac with a person in front of it and one program on it, which has been launched: what all entry
/// points and the tests drive.
class ModelledMac {
  public:
    /// The error is one sentence: the profile can't be used.
    static std::expected<std::unique_ptr<ModelledMac>, std::string> start(MacOptions, ProgramFactory);

    ModelledMac(const ModelledMac&) = delete;
    ModelledMac& operator=(const ModelledMac&) = delete;
    /// As if the power went off; what is stored stays stored.
    ~ModelledMac();

    Driver& driver() { return *driver_; }

    Mac& mac() { return *mac_; }

    ScreenContent& content() { return mac_->content(); }

  private:
    ModelledMac() = default;

    VirtualScheduler scheduler_;
    std::unique_ptr<Mac> mac_;
    std::unique_ptr<Driver> driver_;
};

} // namespace mac_model
