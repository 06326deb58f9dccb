#include "platform/macos/input/events.h"

#include "platform/macos/support/cf_reference.h"
#include "platform/macos/support/conversions.h"
#include "platform/macos/support/main_thread.h"

#include <utility>

namespace tavrin::macos {

namespace {

using CgSource = CfReference<CGEventSourceRef>;
using CgEvent = CfReference<CGEventRef>;

static_assert(std::to_underlying(MouseEventType::LeftDown) == kCGEventLeftMouseDown);
static_assert(std::to_underlying(MouseEventType::LeftUp) == kCGEventLeftMouseUp);
static_assert(std::to_underlying(MouseEventType::Moved) == kCGEventMouseMoved);
static_assert(std::to_underlying(MouseEventType::LeftDragged) == kCGEventLeftMouseDragged);
static_assert(commandEventFlag == kCGEventFlagMaskCommand);
static_assert(std::to_underlying(EventField::EventNumber) == kCGMouseEventNumber);
static_assert(std::to_underlying(EventField::DeltaX) == kCGMouseEventDeltaX);
static_assert(std::to_underlying(EventField::DeltaY) == kCGMouseEventDeltaY);
static_assert(std::to_underlying(EventField::TargetProcess) == kCGEventTargetUnixProcessID);
static_assert(std::to_underlying(EventField::WindowUnderPointer) == kCGMouseEventWindowUnderMousePointer);
static_assert(std::to_underlying(EventField::WindowThatCanHandle) ==
              kCGMouseEventWindowUnderMousePointerThatCanHandleThisEvent);
static_assert(std::to_underlying(EventTap::Hid) == kCGHIDEventTap);
static_assert(std::to_underlying(EventTap::Session) == kCGSessionEventTap);
static_assert(std::to_underlying(EventSourceState::HidSystem) == kCGEventSourceStateHIDSystemState);
static_assert(std::to_underlying(EventSuppressionState::SuppressionInterval) ==
              kCGEventSuppressionStateSuppressionInterval);
static_assert(std::to_underlying(EventSuppressionState::RemoteMouseDrag) ==
              kCGEventSuppressionStateRemoteMouseDrag);
static_assert(allLocalEvents ==
              (kCGEventFilterMaskPermitLocalMouseEvents | kCGEventFilterMaskPermitLocalKeyboardEvents |
               kCGEventFilterMaskPermitSystemDefinedEvents));

class MacEventSource final : public EventSource {
  public:
    MacEventSource(EventSourceSettings settings, CgSource source)
        : EventSource(std::move(settings))
        , source_(std::move(source)) {}

    CGEventSourceRef source() const { return source_.get(); }

  private:
    CgSource source_;
};

class MacPreparedEvent final : public PreparedEvent {
  public:
    MacPreparedEvent(MouseEvent value, CgEvent event)
        : PreparedEvent(std::move(value))
        , event_(std::move(event)) {}

    CGEventRef event() const { return event_.get(); }

    MouseEvent readBack() const override {
        auto read = value();
        read.type = static_cast<MouseEventType>(CGEventGetType(event()));
        read.location = pointFromQuartz(CGEventGetLocation(event()));
        read.flags = CGEventGetFlags(event());
        if (read.clickState) read.clickState = CGEventGetIntegerValueField(event(), kCGMouseEventClickState);
        for (auto& [field, number] : read.fields)
            number = CGEventGetIntegerValueField(event(), static_cast<CGEventField>(field));
        return read;
    }

  private:
    CgEvent event_;
};

void apply(const EventSourceSettings& settings, CGEventSourceRef source) {
    if (settings.localEventsSuppressionInterval)
        CGEventSourceSetLocalEventsSuppressionInterval(source,
                                                       settings.localEventsSuppressionInterval->count());
    for (const auto& [state, filter] : settings.localEventsFilter)
        CGEventSourceSetLocalEventsFilterDuringSuppressionState(source, filter,
                                                                static_cast<CGEventSuppressionState>(state));
}

void apply(const MouseEvent& value, CGEventRef event) {
    CGEventSetFlags(event, static_cast<CGEventFlags>(value.flags));
    if (value.clickState) CGEventSetIntegerValueField(event, kCGMouseEventClickState, *value.clickState);
    for (const auto& [field, number] : value.fields)
        CGEventSetIntegerValueField(event, static_cast<CGEventField>(field), number);
}

CGEventSourceRef sourceOf(const MouseEvent& value) {
    const auto* source = dynamic_cast<const MacEventSource*>(value.source.get());
    return source ? source->source() : nullptr;
}

CGEventRef eventOf(const PreparedEvent& event) {
    const auto* prepared = dynamic_cast<const MacPreparedEvent*>(&event);
    return prepared ? prepared->event() : nullptr;
}

} // namespace

MacEvents::~MacEvents() {
    while (hidesOfCursor_ > 0) showCursor();
}

std::shared_ptr<const EventSource> MacEvents::createSource(const EventSourceSettings& settings) {
    assertMainThread();
    auto source = CgSource::adopting(CGEventSourceCreate(static_cast<CGEventSourceStateID>(settings.state)));
    if (!source) return nullptr;
    apply(settings, source.get());
    return std::make_shared<const MacEventSource>(settings, std::move(source));
}

std::unique_ptr<PreparedEvent> MacEvents::create(const MouseEvent& value) {
    assertMainThread();
    auto event =
        CgEvent::adopting(CGEventCreateMouseEvent(sourceOf(value), static_cast<CGEventType>(value.type),
                                                  quartzPoint(value.location), kCGMouseButtonLeft));
    if (!event) return nullptr;
    apply(value, event.get());
    return std::make_unique<MacPreparedEvent>(value, std::move(event));
}

void MacEvents::post(const PreparedEvent& event, EventTap tap) {
    assertMainThread();
    if (const auto prepared = eventOf(event)) CGEventPost(static_cast<CGEventTapLocation>(tap), prepared);
}

void MacEvents::postToProcess(const PreparedEvent& event, ProcessIdentifier process) {
    assertMainThread();
    if (const auto prepared = eventOf(event)) CGEventPostToPid(process, prepared);
}

bool MacEvents::postKeyToProcess(const KeyEvent& value, ProcessIdentifier process) {
    assertMainThread();
    const auto event = CgEvent::adopting(CGEventCreateKeyboardEvent(
        nullptr, static_cast<CGKeyCode>(value.keyCode), value.motion == KeyMotion::Down));
    if (!event) return false;
    CGEventSetFlags(event.get(), 0); // else it takes over the modifier keys that the user holds
    CGEventPostToPid(process, event.get());
    return true;
}

bool MacEvents::mayPost() const {
    assertMainThread();
    return CGPreflightPostEventAccess();
}

void MacEvents::warpPointer(Point location) {
    assertMainThread();
    CGWarpMouseCursorPosition(quartzPoint(location));
}

std::optional<Point> MacEvents::pointerLocation() const {
    assertMainThread();
    const auto event = CgEvent::adopting(CGEventCreate(nullptr));
    if (!event) return std::nullopt;
    return pointFromQuartz(CGEventGetLocation(event.get()));
}

std::uint32_t MacEvents::eventCount(MouseEventType type) const {
    assertMainThread();
    return CGEventSourceCounterForEventType(kCGEventSourceStateCombinedSessionState,
                                            static_cast<CGEventType>(type));
}

void MacEvents::hideCursor() {
    assertMainThread();
    if (CGDisplayHideCursor(CGMainDisplayID()) == kCGErrorSuccess) ++hidesOfCursor_;
}

void MacEvents::showCursor() {
    assertMainThread();
    if (hidesOfCursor_ == 0) return;
    --hidesOfCursor_;
    CGDisplayShowCursor(CGMainDisplayID());
}

} // namespace tavrin::macos
