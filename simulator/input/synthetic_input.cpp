#include "input/synthetic_input.h"

#include "menu_bar/menu_bar_windows.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace mac_model {

using tavrin::EventField;
using tavrin::MouseEvent;
using tavrin::MouseEventType;
using tavrin::Point;

namespace {

constexpr double dragThreshold = 4; // points
constexpr double nudgeDistance = 40;
constexpr tavrin::Seconds nudgeDelay{0.005};

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

std::int64_t fieldOf(const MouseEvent& event, EventField field) {
    const auto found = event.fields.find(field);
    return found == event.fields.end() ? 0 : found->second;
}

/// 0 when the event names none.
std::int64_t windowOf(const MouseEvent& event) {
    for (const auto field :
         {EventField::WindowNumber, EventField::WindowThatCanHandle, EventField::WindowUnderPointer})
        if (const auto number = fieldOf(event, field); number != 0) return number;
    return 0;
}

bool hasCommand(const MouseEvent& event) { return (event.flags & tavrin::commandEventFlag) != 0; }

} // namespace

SyntheticInput::SyntheticInput(Mac& mac, ScreenContent& content, Person& person)
    : mac_(mac)
    , content_(content)
    , person_(person)
    , world_(mac.scheduler()) {
    auto& hooks = mac.eventServer().hooks;
    hooks.deliver = [this](const PostedEvent& posted) { receive(posted); };
    hooks.deliverKey = [this](const PostedKey& posted) { receive(posted); };
    hooks.pointerLocation = [this] { return content_.pointer.at; };
    hooks.warpPointer = [this](Point point) { content_.pointer.at = onScreen(point); };
    hooks.hideCursor = [this] { content_.cursor.hide(mac_.scheduler().now()); };
    hooks.showCursor = [this] { content_.cursor.show(mac_.scheduler().now()); };
    subscriptions_.push_back(mac.permission().onChanged.subscribe([this] {
        if (mac_.permission().isTrusted()) return;
        abandonDrags();
        content_.pointer.buttons.erase(MouseButton::Left); // by the click that has thrown the switch
    }));
    subscriptions_.push_back(mac.program().onDisconnected.subscribe([this] {
        abandonDrags();
        content_.cursor.ownerEnded();
    }));
}

SyntheticInput::~SyntheticInput() { mac_.eventServer().hooks = {}; }

/// Nothing more will come of them. A button that is down stays so: macOS releases it for nobody.
void SyntheticInput::abandonDrags() {
    if (std::exchange(pressNumber_, std::nullopt)) person_.letGoOfAll();
    if (isCarryingByWindow()) mac_.statusArea().putDown(PutDown::WhereItWas);
    windowPress_.reset();
}

void SyntheticInput::receive(const PostedEvent& posted) {
    record(posted);
    if (posted.process)
        giveToWindow(posted.event, posted.process);
    else
        enterAtTap(posted.event);
}

/// Of all keys that a process can be given, only Escape means something here: it closes that process's menu.
void SyntheticInput::receive(const PostedKey& posted) {
    constexpr int keyCodeField = 9; // kCGKeyboardEventKeycode
    const bool isDown = posted.event.motion == tavrin::KeyMotion::Down;
    SyntheticEvent entry;
    entry.time = mac_.scheduler().now();
    entry.type = isDown ? "keyDown" : "keyUp";
    entry.processIdentifier = posted.process;
    entry.fields[keyCodeField] = posted.event.keyCode;
    content_.events.record(std::move(entry));
    const auto* process = mac_.processes().find(posted.process);
    const bool reaches =
        process && process->application.responding && content_.menus.owner() == posted.process;
    const bool ignores = mac_.accessibility().menus().faultsOf(posted.process).ignoresEscape;
    if (isDown && posted.event.keyCode == tavrin::escapeKeyCode && reaches && !ignores)
        content_.menus.close();
}

void SyntheticInput::record(const PostedEvent& posted) {
    const auto& event = posted.event;
    SyntheticEvent entry;
    entry.time = mac_.scheduler().now();
    entry.type = nameOf(event.type);
    if (posted.tap) entry.tap = *posted.tap == tavrin::EventTap::Hid ? "hid" : "session";
    entry.processIdentifier = posted.process;
    entry.at = event.location;
    entry.flags = event.flags;
    for (const auto& [field, value] : event.fields) entry.fields[static_cast<int>(field)] = value;
    // Without a choice macOS says 1 for a press and 0 for its release.
    const std::int64_t clickState = event.type == MouseEventType::LeftDown ? 1 : 0;
    entry.clickState = static_cast<int>(event.clickState.value_or(clickState));
    content_.events.record(std::move(entry));
}

void SyntheticInput::enterAtTap(const MouseEvent& event) {
    if (windowOf(event) == 0) return followTap(event);
    movePointerOnly(event);
    if (event.type == MouseEventType::LeftDown) content_.pointer.buttons.insert(MouseButton::Left);
    if (event.type == MouseEventType::LeftUp) content_.pointer.buttons.erase(MouseButton::Left);
    giveToWindow(event, std::nullopt);
}

void SyntheticInput::followTap(const MouseEvent& event) {
    switch (event.type) {
    case MouseEventType::Moved:
        // A drag in progress takes no notice of moves that aren't drags.
        return pressNumber_ ? movePointerOnly(event) : person_.moveTo(onScreen(event.location));
    case MouseEventType::LeftDown:
        return pressAtPointer(event);
    case MouseEventType::LeftDragged:
        return dragPointer(event);
    case MouseEventType::LeftUp:
        return releaseAtPointer(event);
    }
}

void SyntheticInput::movePointerOnly(const MouseEvent& event) {
    content_.pointer.at = onScreen(event.location);
    mac_.eventServer().count(event.type);
}

void SyntheticInput::pressAtPointer(const MouseEvent& event) {
    const auto point = onScreen(event.location);
    if (point != content_.pointer.at) person_.moveTo(point);
    pressNumber_ = usableNumber(event);
    person_.press(MouseButton::Left,
                  hasCommand(event) ? std::vector{Modifier::Command} : std::vector<Modifier>{});
}

void SyntheticInput::dragPointer(const MouseEvent& event) {
    if (!pressNumber_ || !continues(event, *pressNumber_)) return movePointerOnly(event);
    person_.moveTo(onScreen(event.location));
    if (mac_.faults().personMovesPointerDuringDrags) world_.after(nudgeDelay, [this] { nudge(); });
}

/// A release is no drag: what is carried stays where the last drag has brought it.
void SyntheticInput::releaseAtPointer(const MouseEvent& event) {
    content_.pointer.at = onScreen(event.location);
    const auto pressed = std::exchange(pressNumber_, std::nullopt);
    if (pressed && !continues(event, *pressed)) person_.letGoOfAll();
    person_.release(MouseButton::Left);
}

/// The person's hand on the mouse, now to the left and now to the right.
void SyntheticInput::nudge() {
    if (!pressNumber_) return;
    const double distance = ++nudges_ % 2 == 0 ? nudgeDistance : -nudgeDistance;
    person_.moveTo(onScreen({content_.pointer.at.x + distance, content_.pointer.at.y}));
}

void SyntheticInput::giveToWindow(const MouseEvent& event, std::optional<tavrin::ProcessIdentifier> process) {
    const auto* item = itemWithWindow(mac_, windowOf(event));
    if (!item) return;
    const auto target = fieldOf(event, EventField::TargetProcess);
    const bool isForOwner = (!process || *process == item->owner) && (target == 0 || target == item->owner);
    const auto* owner = mac_.processes().find(item->owner);
    if (!isForOwner || !owner || !owner->application.responding) return;
    if (event.type == MouseEventType::LeftDown) return pressWindow(*item, event);
    if (!windowPress_ || windowPress_->item != item->identifier) return;
    if (event.type == MouseEventType::LeftUp)
        releaseWindow(event);
    else
        dragWindow(event);
}

void SyntheticInput::pressWindow(const StatusItemRecord& item, const MouseEvent& event) {
    const auto number = fieldOf(event, EventField::EventNumber);
    const bool isOver = windowPress_ && windowPress_->isCarried && !isCarryingByWindow();
    const bool isCopy = windowPress_ && !isOver && windowPress_->item == item.identifier && number != 0 &&
                        windowPress_->number == number;
    if (isCopy) return; // that came by another way
    if (isCarryingByWindow()) mac_.statusArea().putDown(PutDown::WhereItWas);
    windowPress_ = WindowPress{item.identifier, usableNumber(event), event.location,
                               event.location.x - item.frame->x, hasCommand(event)};
    if (!windowPress_->isCommand && item.origin == ItemOrigin::DesktopFile)
        content_.statusItems.toggle(item.identifier);
}

bool SyntheticInput::isCarryingByWindow() const {
    const auto* item = windowPress_ ? mac_.statusArea().find(windowPress_->item) : nullptr;
    return item && windowPress_->isCarried && item->isCarried;
}

void SyntheticInput::dragWindow(const MouseEvent& event) {
    auto& press = *windowPress_;
    if (!press.isCommand) return;
    // Moves have no number.
    if (event.type == MouseEventType::LeftDragged && !continues(event, press.number)) return;
    const double distance =
        std::hypot(event.location.x - press.pressedAt.x, event.location.y - press.pressedAt.y);
    if (!press.isCarried && distance > dragThreshold) {
        press.isCarried = mac_.statusArea().pickUp(press.item);
        if (!press.isCarried) return windowPress_.reset();
    }
    if (isCarryingByWindow()) mac_.statusArea().carryTo(event.location.x - press.offset);
}

void SyntheticInput::releaseWindow(const MouseEvent& event) {
    const bool isCarrying = isCarryingByWindow();
    const auto press = *std::exchange(windowPress_, std::nullopt);
    const bool isContinued = continues(event, press.number);
    if (!press.isCommand && isContinued) mac_.statusArea().press(press.item, MouseButton::Left);
    if (!isCarrying) return;
    const auto* primary = mac_.screens().primary();
    const bool isOnBar = primary && event.location.y >= 0 && event.location.y < primary->menuBarHeight;
    mac_.statusArea().putDown(isOnBar && isContinued ? PutDown::There : PutDown::WhereItWas);
}

/// The number must be higher than those of all presses before, else no event can be tied to this one.
std::int64_t SyntheticInput::usableNumber(const MouseEvent& press) const {
    const auto number = fieldOf(press, EventField::EventNumber);
    const bool isNew = number > std::int64_t{mac_.eventServer().eventCount(MouseEventType::LeftDown)};
    return isNew ? number : 0;
}

bool SyntheticInput::continues(const MouseEvent& event, std::int64_t pressNumber) const {
    constexpr int firstVersionThatCompares = 26;
    if (mac_.version().major < firstVersionThatCompares) return true;
    return pressNumber != 0 && fieldOf(event, EventField::EventNumber) == pressNumber;
}

/// The pointer never leaves the screens.
Point SyntheticInput::onScreen(Point point) const {
    const auto& screens = mac_.screens().screens();
    if (screens.empty() || !std::isfinite(point.x) || !std::isfinite(point.y)) return content_.pointer.at;
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
