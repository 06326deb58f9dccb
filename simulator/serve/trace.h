#pragma once

#include "driver/modelled_mac.h"
#include "vocabulary/vocabulary.h"

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace mac_model {

/// Notes what the program on a Mac posts and stores and what it is told, and which entries of other
/// applications' menus ran:
/// `{"time", "kind", "text"}`, where the kind is "posted", "stored", "told" or "chose". It must not outlive
/// the Mac.
class Trace {
  public:
    explicit Trace(ModelledMac&);
    Trace(const Trace&) = delete;
    Trace& operator=(const Trace&) = delete;

    /// What has come since the last call, in order.
    std::vector<nlohmann::json> take();

  private:
    void note(std::string kind, std::string text);
    void noteStored();
    std::string nameOf(ProcessIdentifier) const;

    ModelledMac& modelled_;
    std::vector<nlohmann::json> entries_;
    nlohmann::json stored_;
    std::vector<Subscription> subscriptions_;
};

} // namespace mac_model
