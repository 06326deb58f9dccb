#pragma once

#include "base/owner_gate.h"
#include "system/program_connection.h"
#include "vocabulary/vocabulary.h"

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
        , onClose_(std::move(onClose)) {}

    bool isOpen() const { return connection_ && connection_->isOpen(); }

    ProcessIdentifier process() const { return connection_ ? connection_->process() : 0; }

    std::function<void(Work)> deliver() const {
        return [connection = connection_, pass = gate_.pass()](Work work) {
            if (connection) connection->post(pass.guarded(std::move(work)));
        };
    }

    void postOnClose() const {
        // The callback may destroy its owner; the posted copy outlives that.
        if (onClose_) deliver()(onClose_);
    }

  private:
    std::shared_ptr<ProgramConnection> connection_;
    std::function<void()> onClose_;
    tavrin::OwnerGate gate_;
};

} // namespace mac_model
