#include "seam/system/program_events.h"

namespace mac_model {

std::shared_ptr<const tavrin::EventSource>
ProgramEvents::createSource(const tavrin::EventSourceSettings& settings) {
    if (side_.mac.behaviour.faults.eventsFail) return nullptr;
    return std::make_shared<tavrin::EventSource>(settings);
}

std::unique_ptr<tavrin::PreparedEvent> ProgramEvents::create(const tavrin::MouseEvent& event) {
    if (side_.mac.behaviour.faults.eventsFail) return nullptr;
    return std::make_unique<tavrin::PreparedEvent>(event);
}

bool ProgramEvents::mayPost() const { return side_.isOpen() && side_.mac.permission.isTrusted(); }

void ProgramEvents::post(const tavrin::PreparedEvent& event, tavrin::EventTap tap) {
    if (mayPost()) side_.mac.input.post({event.value(), tap, std::nullopt});
}

void ProgramEvents::postToProcess(const tavrin::PreparedEvent& event, tavrin::ProcessIdentifier process) {
    if (mayPost()) side_.mac.input.post({event.value(), std::nullopt, process});
}

bool ProgramEvents::postKeyToProcess(const tavrin::KeyEvent& event, tavrin::ProcessIdentifier process) {
    if (side_.mac.behaviour.faults.eventsFail) return false;
    if (mayPost()) side_.mac.input.post(PostedKey{event, process});
    return true;
}

std::optional<tavrin::Point> ProgramEvents::pointerLocation() const {
    if (side_.mac.behaviour.faults.eventsFail) return std::nullopt;
    return side_.mac.input.pointerLocation();
}

std::uint32_t ProgramEvents::eventCount(tavrin::MouseEventType type) const {
    return side_.mac.input.eventCount(type);
}

void ProgramEvents::warpPointer(tavrin::Point location) {
    if (side_.isOpen()) side_.mac.input.warpPointer(location);
}

void ProgramEvents::hideCursor() {
    if (side_.isOpen()) side_.mac.input.hideCursor();
}

void ProgramEvents::showCursor() {
    if (side_.isOpen()) side_.mac.input.showCursor();
}

} // namespace mac_model
