#pragma once

#include "platform/events.h"
#include "seam/system/program_side.h"

#include <memory>
#include <utility>

namespace mac_model {

/// Synthetic events as one life of the program's process makes and posts them.
class ProgramEvents final : public tavrin::Events {
  public:
    explicit ProgramEvents(ProgramSide side) : side_(std::move(side)) {}

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
    ProgramSide side_;
};

} // namespace mac_model
