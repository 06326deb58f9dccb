#include "input/synthetic_input.h"

#include "system/menu_faults.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace mac_model {

namespace {

constexpr double nudgeDistance = 40; // points
constexpr Seconds nudgeDelay{0.005};

/// As the constants of CGEventType are called.
std::string nameOf(MouseEventType type) {
    switch (type) {
    case MouseEventType::LeftDown:
        return "leftMouseDown";
    case MouseEventType::LeftUp:
        return "leftMouseUp";
    case MouseEventType::Moved:
        return "mouseMoved";
    case MouseEventType::LeftDragged:
        return "leftMouseDragged";
    }
    return {};
}

} // namespace

void SyntheticInput::post(PostedEvent posted) {
    world_.after(Seconds{0}, [this, posted = std::move(posted)] { receive(posted); });
}

void SyntheticInput::post(PostedKey posted) {
    world_.after(Seconds{0}, [this, posted] { receive(posted); });
}

void SyntheticInput::permissionLost() {
    abandonDrags();
    person_.liftLeftButton(); // the click that turned the switch off has let it go
}

void SyntheticInput::senderEnded() {
    abandonDrags();
    devices_.cursor.ownerEnded();
}

/// The drags don't go on. A button that is down stays down: macOS never releases it itself.
void SyntheticInput::abandonDrags() {
    if (std::exchange(pressNumber_, std::nullopt)) person_.letGoOfAll(PressedBy::PostedEvents);
    windows_.abandonDrag();
}

void SyntheticInput::receive(const PostedEvent& posted) {
    record(posted);
    if (posted.process)
        windows_.give(posted.event, posted.process);
    else
        enterAtTap(posted.event);
}

/// Of all keys that a process can be sent, only Escape has an effect here: it closes that process's menu.
void SyntheticInput::receive(const PostedKey& posted) {
    constexpr int keyCodeField = 9; // kCGKeyboardEventKeycode
    const bool isDown = posted.event.motion == tavrin::KeyMotion::Down;
    SyntheticEvent entry;
    entry.time = scheduler_.now();
    entry.type = isDown ? "keyDown" : "keyUp";
    entry.processIdentifier = posted.process;
    entry.fields[keyCodeField] = posted.event.keyCode;
    devices_.events.record(std::move(entry));
    const auto* process = reach_.processes.find(posted.process);
    const bool reaches = process && process->application.responding && reach_.menus.owner() == posted.process;
    const bool ignores = menuFaultsOf(posted.process, reach_.processes, faults_).ignoresEscape;
    if (isDown && posted.event.keyCode == tavrin::escapeKeyCode && reaches && !ignores) reach_.menus.close();
}

void SyntheticInput::record(const PostedEvent& posted) {
    const auto& event = posted.event;
    SyntheticEvent entry;
    entry.time = scheduler_.now();
    entry.type = nameOf(event.type);
    if (posted.tap) entry.tap = *posted.tap == EventTap::Hid ? "hid" : "session";
    entry.processIdentifier = posted.process;
    entry.at = event.location;
    entry.flags = event.flags;
    for (const auto& [field, value] : event.fields) entry.fields[static_cast<int>(field)] = value;
    // Without a choice macOS says 1 for a press and 0 for its release.
    const std::int64_t clickState = event.type == MouseEventType::LeftDown ? 1 : 0;
    entry.clickState = static_cast<int>(event.clickState.value_or(clickState));
    devices_.events.record(std::move(entry));
}

void SyntheticInput::enterAtTap(const MouseEvent& event) {
    if (windowOf(event) == 0) return followTap(event);
    movePointerOnly(event);
    if (event.type == MouseEventType::LeftDown) devices_.pointer.buttons.insert(MouseButton::Left);
    if (event.type == MouseEventType::LeftUp) devices_.pointer.buttons.erase(MouseButton::Left);
    windows_.give(event, std::nullopt);
}

void SyntheticInput::followTap(const MouseEvent& event) {
    switch (event.type) {
    case MouseEventType::Moved:
        // A drag in progress takes no notice of moves that aren't drags.
        return pressNumber_ ? movePointerOnly(event)
                            : person_.moveTo(onScreen(event.location), PressedBy::PostedEvents);
    case MouseEventType::LeftDown:
        return pressAtPointer(event);
    case MouseEventType::LeftDragged:
        return dragPointer(event);
    case MouseEventType::LeftUp:
        return releaseAtPointer(event);
    }
}

void SyntheticInput::movePointerOnly(const MouseEvent& event) {
    devices_.pointer.at = onScreen(event.location);
    devices_.counts.note(event.type);
}

void SyntheticInput::pressAtPointer(const MouseEvent& event) {
    const auto point = onScreen(event.location);
    if (point != devices_.pointer.at) person_.moveTo(point, PressedBy::PostedEvents);
    pressNumber_ = numbers_.usable(event);
    person_.press(MouseButton::Left,
                  hasCommand(event) ? std::vector{Modifier::Command} : std::vector<Modifier>{},
                  PressedBy::PostedEvents);
}

void SyntheticInput::dragPointer(const MouseEvent& event) {
    if (!pressNumber_ || !numbers_.continues(event, *pressNumber_)) return movePointerOnly(event);
    person_.moveTo(onScreen(event.location), PressedBy::PostedEvents);
    if (faults_.personMovesPointerDuringDrags) world_.after(nudgeDelay, [this] { nudge(); });
}

/// A release is no drag: a carried item stays where the last drag brought it.
void SyntheticInput::releaseAtPointer(const MouseEvent& event) {
    devices_.pointer.at = onScreen(event.location);
    const auto pressed = std::exchange(pressNumber_, std::nullopt);
    if (pressed && !numbers_.continues(event, *pressed)) person_.letGoOfAll(PressedBy::PostedEvents);
    person_.release(MouseButton::Left, PressedBy::PostedEvents);
}

/// The person's hand on the mouse, now to the left and now to the right; what is dragged goes along.
void SyntheticInput::nudge() {
    if (!pressNumber_) return;
    const double distance = ++nudges_ % 2 == 0 ? nudgeDistance : -nudgeDistance;
    person_.moveTo(onScreen({devices_.pointer.at.x + distance, devices_.pointer.at.y}),
                   PressedBy::PostedEvents);
}

/// The pointer never leaves the screens.
Point SyntheticInput::onScreen(Point point) const {
    const auto& screens = reach_.screens.screens();
    if (screens.empty() || !std::isfinite(point.x) || !std::isfinite(point.y)) return devices_.pointer.at;
    const auto nearestOn = [point](const ScreenSpec& screen) {
        const auto& frame = screen.frame;
        return Point{std::clamp(point.x, frame.x, frame.maxX() - 1),
                     std::clamp(point.y, frame.y, frame.maxY() - 1)};
    };
    for (const auto& screen : screens)
        if (screen.frame.contains(point)) return point;
    const auto farness = [&](const ScreenSpec& screen) {
        const auto nearest = nearestOn(screen);
        return std::hypot(point.x - nearest.x, point.y - nearest.y);
    };
    return nearestOn(*std::ranges::min_element(screens, {}, farness));
}

} // namespace mac_model
