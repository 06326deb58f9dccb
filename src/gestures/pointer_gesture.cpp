#include "gestures/pointer_gesture.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tavrin {

std::unique_ptr<PointerGesture> PointerGesture::create(Events& events, MouseEvent release,
                                                       Delivery delivery) {
    const auto location = events.pointerLocation();
    if (!location) return nullptr;
    const std::int64_t number = std::int64_t{events.eventCount(MouseEventType::LeftDown)} + 1;
    std::unique_ptr<PointerGesture> gesture(new PointerGesture(events, delivery, *location, number));
    MouseEvent back{.type = MouseEventType::Moved,
                    .location = *location,
                    .clickState = {},
                    .fields = {},
                    .source = release.source};
    gesture->ending_ = {gesture->make(std::move(release)), gesture->make(std::move(back))};
    if (!gesture->ending_.release || !gesture->ending_.back) return nullptr;
    return gesture;
}

PointerGesture::~PointerGesture() {
    if (isButtonDown_) releaseWhereItIs();
    if (isCursorHidden_) events_.showCursor();
    if (hasPosted_) putPointerBack();
}

/// From macOS 26 on, AppKit takes a drag or a release for the continuation of a press only when they share
/// one event number, higher than any before (seen on 26 and 27). It reads how far a drag went from the
/// deltas.
void PointerGesture::number(MouseEvent& event) const {
    if (event.type == MouseEventType::Moved) return;
    event.fields[EventField::EventNumber] = eventNumber_;
    if (event.type != MouseEventType::LeftDragged) return;
    event.fields[EventField::DeltaX] = std::llround(event.location.x) - std::llround(last_.x);
    event.fields[EventField::DeltaY] = std::llround(event.location.y) - std::llround(last_.y);
}

std::unique_ptr<PreparedEvent> PointerGesture::make(MouseEvent event) const {
    number(event);
    return events_.create(event);
}

void PointerGesture::post(const PreparedEvent& event) {
    hasPosted_ = true;
    last_ = event.value().location;
    if (event.value().type == MouseEventType::LeftDown) isButtonDown_ = true;
    if (event.value().type == MouseEventType::LeftUp) isButtonDown_ = false;
    if (delivery_.process) events_.postToProcess(event, *delivery_.process);
    events_.post(event, delivery_.tap);
}

bool PointerGesture::post(MouseEvent event) {
    const auto made = make(std::move(event));
    if (made) post(*made);
    return made != nullptr;
}

void PointerGesture::hideCursor() {
    isCursorHidden_ = true;
    events_.hideCursor();
}

void PointerGesture::release() { post(*ending_.release); }

/// Where the system is slow, the gesture's own press may be counted only later.
void PointerGesture::watchForPresses() {
    pressesExpected_ = std::max(eventNumber_, std::int64_t{events_.eventCount(MouseEventType::LeftDown)});
}

bool PointerGesture::hasUserPressed() const {
    const bool isReleased = isButtonDown_ && events_.eventCount(MouseEventType::LeftUp) != releasesBefore_;
    return isReleased ||
           (pressesExpected_ && events_.eventCount(MouseEventType::LeftDown) > *pressesExpected_);
}

void PointerGesture::releaseWhereItIs() {
    auto here = ending_.release->value();
    here.location = last_;
    if (!post(std::move(here))) release(); // a release at the wrong place beats a button that stays down
}

void PointerGesture::putPointerBack() {
    if (events_.mayPost())
        events_.post(*ending_.back, delivery_.tap);
    else
        events_.warpPointer(ending_.back->value().location);
}

} // namespace tavrin
