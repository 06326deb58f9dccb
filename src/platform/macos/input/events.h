#pragma once

#include "platform/events.h"

namespace tavrin::macos {

class MacEvents final : public Events {
  public:
    MacEvents() = default;
    MacEvents(const MacEvents&) = delete;
    MacEvents& operator=(const MacEvents&) = delete;
    ~MacEvents() override;

    std::shared_ptr<const EventSource> createSource(const EventSourceSettings& settings) override;
    std::unique_ptr<PreparedEvent> create(const MouseEvent& event) override;
    void post(const PreparedEvent& event, EventTap tap) override;
    void postToProcess(const PreparedEvent& event, ProcessIdentifier process) override;
    bool postKeyToProcess(const KeyEvent& event, ProcessIdentifier process) override;
    bool mayPost() const override;
    void warpPointer(Point location) override;
    std::optional<Point> pointerLocation() const override;
    std::uint32_t eventCount(MouseEventType type) const override;
    void hideCursor() override;
    void showCursor() override;

  private:
    int hidesOfCursor_ = 0;
};

} // namespace tavrin::macos
