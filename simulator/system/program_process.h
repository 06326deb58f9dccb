#pragma once

#include "concurrency/signal.h"
#include "system/program_connection.h"
#include "vocabulary/vocabulary.h"

#include <memory>
#include <string>
#include <utility>

namespace mac_model {

struct ProgramInfo {
    std::string bundleIdentifier;
    std::string name;
    std::string displayVersion; // as shown to a person
};

/// The program's process, as the rest of the Mac knows it.
class ProgramProcess {
  public:
    explicit ProgramProcess(ProgramInfo info) : info_(std::move(info)) {}

    const ProgramInfo& info() const { return info_; }

    /// Null while the program doesn't run.
    const std::shared_ptr<ProgramConnection>& connection() const { return connection_; }

    void connect(std::shared_ptr<ProgramConnection> connection) { connection_ = std::move(connection); }

    void disconnect() {
        if (const auto closed = std::exchange(connection_, nullptr)) closed->close();
        onDisconnected.emit();
    }

    Signal<std::string> onAnnounced; // what it has assistive technology say
    Signal<> onDisconnected;         // close all that the program shows; nothing reaches it any more

  private:
    ProgramInfo info_;
    std::shared_ptr<ProgramConnection> connection_;
};

} // namespace mac_model
