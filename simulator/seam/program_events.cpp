#include "seam/program_events.h"

#include "mac/mac.h"

namespace mac_model {

std::shared_ptr<const tavrin::EventSource>
ProgramEvents::createSource(const tavrin::EventSourceSettings& settings) {
    if (mac_.faults().eventsFail) return nullptr;
    return std::make_shared<tavrin::EventSource>(settings);
}

std::unique_ptr<tavrin::PreparedEvent> ProgramEvents::create(const tavrin::MouseEvent& event) {
    if (mac_.faults().eventsFail) return nullptr;
    return std::make_unique<tavrin::PreparedEvent>(event);
}

bool ProgramEvents::mayPost() const { return connection_->isOpen() && mac_.permission().isTrusted(); }

void ProgramEvents::post(const tavrin::PreparedEvent& event, tavrin::EventTap tap) {
    if (mayPost()) mac_.eventServer().post({event.value(), tap, std::nullopt});
}

void ProgramEvents::postToProcess(const tavrin::PreparedEvent& event, tavrin::ProcessIdentifier process) {
    if (mayPost()) mac_.eventServer().post({event.value(), std::nullopt, process});
}

bool ProgramEvents::postKeyToProcess(const tavrin::KeyEvent& event, tavrin::ProcessIdentifier process) {
    if (mac_.faults().eventsFail) return false;
    if (mayPost()) mac_.eventServer().post(PostedKey{event, process});
    return true;
}

std::optional<tavrin::Point> ProgramEvents::pointerLocation() const {
    if (mac_.faults().eventsFail) return std::nullopt;
    const auto& ask = mac_.eventServer().hooks.pointerLocation;
    return ask ? ask() : tavrin::Point{};
}

std::uint32_t ProgramEvents::eventCount(tavrin::MouseEventType type) const {
    return mac_.eventServer().eventCount(type);
}

void ProgramEvents::warpPointer(tavrin::Point location) {
    const auto& warp = mac_.eventServer().hooks.warpPointer;
    if (connection_->isOpen() && warp) warp(location);
}

void ProgramEvents::hideCursor() {
    const auto& hide = mac_.eventServer().hooks.hideCursor;
    if (connection_->isOpen() && hide) hide();
}

void ProgramEvents::showCursor() {
    const auto& show = mac_.eventServer().hooks.showCursor;
    if (connection_->isOpen() && show) show();
}

} // namespace mac_model
