#pragma once

#include "concurrency/signal.h"
#include "platform/updates.h"

#include <functional>
#include <utility>

namespace tavrin {

/// The update framework as the menu and the settings see it, present or not.
class AppUpdates {
  public:
    /// `updater` may be null: then nothing can be checked.
    explicit AppUpdates(Updater* updater)
        : updater_(updater)
        , isAutomatic_(updater && updater->checksAutomatically() && updater->downloadsAutomatically()) {}

    bool isAvailable() const { return updater_ != nullptr; }

    bool isAutomatic() const { return isAutomatic_.get(); }

    Subscription onChanged(std::function<void(const bool&)> handler) {
        return isAutomatic_.subscribe(std::move(handler));
    }

    void checkNow() {
        if (updater_) updater_->checkNow();
    }

    void setAutomatic(bool automatic) {
        if (!updater_) return;
        updater_->setAutomatic(automatic);
        isAutomatic_.set(automatic);
    }

  private:
    Updater* updater_;
    Published<bool> isAutomatic_;
};

} // namespace tavrin
