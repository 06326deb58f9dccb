#pragma once

#include "platform/events.h"
#include "seam/system/program_side.h"
#include "vocabulary/vocabulary.h"

#include <memory>
#include <utility>

namespace mac_model {

/// Synthetic events as one life of the program's process makes and posts them.
class ProgramEvents final : public tavrin::Events {
  public:
    explicit ProgramEvents(ProgramSide side) : side_(std::move(side)) {}

    std::shared_ptr<const EventSource> createSource(const EventSourceSettings&) override;
    std::unique_ptr<PreparedEvent> create(const MouseEvent&) override;
    void post(const PreparedEvent&, EventTap) override;
    void postToProcess(const PreparedEvent&, ProcessIdentifier) override;
    bool postKeyToProcess(const KeyEvent&, ProcessIdentifier) override;
    std::optional<Point> pointerLocation() const override;
    std::uint32_t eventCount(MouseEventType) const override;
    bool mayPost() const override;
    void warpPointer(Point) override;
    void hideCursor() override;
    void showCursor() override;

  private:
    ProgramSide side_;
};

} // namespace mac_model
