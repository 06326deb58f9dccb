#include "seam/system/program_events.h"

namespace mac_model {

std::shared_ptr<const EventSource> ProgramEvents::createSource(const EventSourceSettings& settings) {
    if (side_.mac.behaviour.faults.eventsFail) return nullptr;
    return std::make_shared<EventSource>(settings);
}

std::unique_ptr<PreparedEvent> ProgramEvents::create(const MouseEvent& event) {
    if (side_.mac.behaviour.faults.eventsFail) return nullptr;
    return std::make_unique<PreparedEvent>(event);
}

bool ProgramEvents::mayPost() const { return side_.isOpen() && side_.mac.permission.isTrusted(); }

void ProgramEvents::post(const PreparedEvent& event, EventTap tap) {
    if (mayPost()) side_.mac.input.post({event.value(), tap, std::nullopt});
}

void ProgramEvents::postToProcess(const PreparedEvent& event, ProcessIdentifier process) {
    if (mayPost()) side_.mac.input.post({event.value(), std::nullopt, process});
}

bool ProgramEvents::postKeyToProcess(const KeyEvent& event, ProcessIdentifier process) {
    if (side_.mac.behaviour.faults.eventsFail) return false;
    if (mayPost()) side_.mac.input.post(PostedKey{event, process});
    return true;
}

std::optional<Point> ProgramEvents::pointerLocation() const {
    if (side_.mac.behaviour.faults.eventsFail) return std::nullopt;
    return side_.mac.input.pointerLocation();
}

std::uint32_t ProgramEvents::eventCount(MouseEventType type) const {
    return side_.mac.input.eventCount(type);
}

void ProgramEvents::warpPointer(Point location) {
    if (side_.isOpen()) side_.mac.input.warpPointer(location);
}

void ProgramEvents::hideCursor() {
    if (side_.isOpen()) side_.mac.input.hideCursor();
}

void ProgramEvents::showCursor() {
    if (side_.isOpen()) side_.mac.input.showCursor();
}

} // namespace mac_model
