#include "input/window_input.h"

#include <cmath>
#include <utility>

namespace mac_model {

namespace {

constexpr double dragThreshold = 4; // points

} // namespace

void WindowInput::abandonDrag() {
    if (isCarrying()) reach_.itemDrag.putDown(PutDown::WhereItWas);
    press_.reset();
}

void WindowInput::give(const MouseEvent& event, std::optional<ProcessIdentifier> process) {
    const auto* item = windows_.itemWith(windowOf(event));
    if (!item) return;
    const auto target = fieldOf(event, EventField::TargetProcess);
    const bool isForOwner = (!process || *process == item->owner) && (target == 0 || target == item->owner);
    const auto* owner = reach_.processes.find(item->owner);
    if (!isForOwner || !owner || !owner->application.responding) return;
    if (event.type == MouseEventType::LeftDown) return press(*item, event);
    if (!press_ || press_->item != item->identifier) return;
    if (event.type == MouseEventType::LeftUp)
        release(event);
    else
        drag(event);
}

void WindowInput::press(const StatusItemRecord& item, const MouseEvent& event) {
    const auto number = fieldOf(event, EventField::EventNumber);
    const bool isOver = press_ && press_->isCarried && !isCarrying();
    const bool isCopy =
        press_ && !isOver && press_->item == item.identifier && number != 0 && press_->number == number;
    if (isCopy) return; // which came by another way
    if (isCarrying()) reach_.itemDrag.putDown(PutDown::WhereItWas);
    press_ = Press{item.identifier, numbers_.usable(event), event.location,
                   reach_.screens.onPrimaryBar(event.location).x - item.frame->x, hasCommand(event)};
    if (!press_->isCommand && item.origin == ItemOrigin::DesktopFile)
        reach_.itemSurfaces.toggle(item.identifier);
}

bool WindowInput::isCarrying() const {
    const auto* item = press_ ? reach_.items.find(press_->item) : nullptr;
    return item && press_->isCarried && item->isCarried;
}

void WindowInput::drag(const MouseEvent& event) {
    auto& press = *press_;
    if (!press.isCommand) return;
    // Moves have no number.
    if (event.type == MouseEventType::LeftDragged && !numbers_.continues(event, press.number)) return;
    const double distance =
        std::hypot(event.location.x - press.pressedAt.x, event.location.y - press.pressedAt.y);
    if (!press.isCarried && distance > dragThreshold) {
        press.isCarried = reach_.itemDrag.pickUp(press.item);
        if (!press.isCarried) return press_.reset();
    }
    if (isCarrying()) reach_.itemDrag.carryTo(reach_.screens.onPrimaryBar(event.location).x - press.offset);
}

void WindowInput::release(const MouseEvent& event) {
    const bool wasCarrying = isCarrying();
    const auto press = *std::exchange(press_, std::nullopt);
    const bool isContinued = numbers_.continues(event, press.number);
    if (!press.isCommand && isContinued) reach_.items.press(press.item, MouseButton::Left);
    if (!wasCarrying) return;
    const auto* primary = reach_.screens.primary();
    const double y = reach_.screens.onPrimaryBar(event.location).y;
    const bool isOnBar = primary && y >= 0 && y < primary->menuBarHeight;
    reach_.itemDrag.putDown(isOnBar && isContinued ? PutDown::There : PutDown::WhereItWas);
}

} // namespace mac_model
