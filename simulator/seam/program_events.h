#pragma once

#include "platform/events.h"
#include "system/program_connection.h"

#include <memory>
#include <utility>

namespace mac_model {

class Mac;

/// Synthetic events as one life of the program's process makes and posts them.
class ProgramEvents final : public tavrin::Events {
  public:
    ProgramEvents(Mac& mac, std::shared_ptr<ProgramConnection> connection)
        : mac_(mac)
        , connection_(std::move(connection)) {}

    std::shared_ptr<const tavrin::EventSource> createSource(const tavrin::EventSourceSettings&) override;
    std::unique_ptr<tavrin::PreparedEvent> create(const tavrin::MouseEvent&) override;
    void post(const tavrin::PreparedEvent&, tavrin::EventTap) override;
    void postToProcess(const tavrin::PreparedEvent&, tavrin::ProcessIdentifier) override;
    bool postKeyToProcess(const tavrin::KeyEvent&, tavrin::ProcessIdentifier) override;
    std::optional<tavrin::Point> pointerLocation() const override;
    std::uint32_t eventCount(tavrin::MouseEventType) const override;
    bool mayPost() const override;
    void warpPointer(tavrin::Point) override;
    void hideCursor() override;
    void showCursor() override;

  private:
    Mac& mac_;
    std::shared_ptr<ProgramConnection> connection_;
};

} // namespace mac_model
