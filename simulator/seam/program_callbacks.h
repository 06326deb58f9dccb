#pragma once

#include "system/program_connection.h"

#include <functional>
#include <memory>
#include <utility>

namespace mac_model {

/// The way into the program from one of its popovers or windows. It closes with that object, because the
/// program's callbacks refer to the object's owner.
class ProgramCallbacks {
  public:
    ProgramCallbacks(std::shared_ptr<ProgramConnection> connection, std::function<void()> onClose)
        : connection_(std::move(connection))
        , onClose_(std::make_shared<std::function<void()>>(std::move(onClose))) {}

    bool isOpen() const { return connection_ && connection_->isOpen(); }

    tavrin::ProcessIdentifier process() const { return connection_ ? connection_->process() : 0; }

    std::function<void(tavrin::Work)> deliver() const {
        return [connection = connection_, owner = std::weak_ptr(onClose_)](tavrin::Work work) {
            if (!connection) return;
            connection->post([owner, work = std::move(work)] {
                if (!owner.expired()) work();
            });
        };
    }

    void postOnClose() const {
        // The callback may destroy its owner, and must outlive that.
        deliver()([owner = std::weak_ptr(onClose_)] {
            if (const auto onClose = owner.lock(); onClose && *onClose) (*onClose)();
        });
    }

  private:
    std::shared_ptr<ProgramConnection> connection_;
    std::shared_ptr<std::function<void()>> onClose_;
};

} // namespace mac_model
