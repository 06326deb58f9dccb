// Quartz's events, posted to the modelled Mac.
#include "answering_mac.h"
#include "platform/events.h"
#include "told.h"

#import <AppKit/AppKit.h>
#include <ApplicationServices/ApplicationServices.h>
#include <memory>

@interface TavrinEventSource : NSObject {
  @public
    tavrin::EventSourceSettings settings_;
    std::shared_ptr<const tavrin::EventSource> made_; // with the settings at its first use
}
@end

@implementation TavrinEventSource
@end

@interface TavrinEvent : NSObject {
  @public
    tavrin::MouseEvent mouse_;
    std::optional<tavrin::KeyEvent> key_;
}
@end

@implementation TavrinEvent
@end

namespace {

/// What an event is made with, before its flags are set: as if the user held caps lock.
constexpr tavrin::EventFlags heldByTheUser = 0x10000;

double screenHeight() { return NSHeight(NSScreen.mainScreen.frame); }

TavrinEvent* newEvent() {
    TavrinEvent* event = [[TavrinEvent alloc] init];
    event->mouse_.flags = heldByTheUser;
    return event;
}

TavrinEvent* eventIn(CGEventRef event) { return (__bridge TavrinEvent*)(CFTypeRef)event; }

TavrinEventSource* sourceIn(CGEventSourceRef source) {
    return (__bridge TavrinEventSource*)(CFTypeRef)source;
}

std::shared_ptr<const tavrin::EventSource> sourceOfMac(TavrinEventSource* source) {
    if (!source || !answeringMac()) return nullptr;
    if (!source->made_) source->made_ = answeringMac()->events.createSource(source->settings_);
    return source->made_;
}

template <class Post>
void withPrepared(CGEventRef event, const Post& post) {
    if (!answeringMac()) return;
    const auto prepared = answeringMac()->events.create(eventIn(event)->mouse_);
    if (prepared) post(*prepared);
}

std::optional<tavrin::Point> pointer() {
    if (answeringMac()) return answeringMac()->events.pointerLocation();
    const NSPoint place = NSEvent.mouseLocation;
    return tavrin::Point{place.x, screenHeight() - place.y};
}

} // namespace

extern "C" {

CGEventSourceRef CGEventSourceCreate(CGEventSourceStateID state) {
    if (const auto* told = toldFor(__func__)) return (CGEventSourceRef)told->retained();
    TavrinEventSource* source = [[TavrinEventSource alloc] init];
    source->settings_.state = static_cast<tavrin::EventSourceState>(state);
    return (CGEventSourceRef)(__bridge_retained CFTypeRef)source;
}

uint32_t CGEventSourceCounterForEventType(CGEventSourceStateID, CGEventType type) {
    return answeringMac() ? answeringMac()->events.eventCount(static_cast<tavrin::MouseEventType>(type)) : 0;
}

void CGEventSourceSetLocalEventsFilterDuringSuppressionState(CGEventSourceRef source,
                                                             CGEventFilterMask filter,
                                                             CGEventSuppressionState state) {
    sourceIn(source)->settings_.localEventsFilter[static_cast<tavrin::EventSuppressionState>(state)] = filter;
}

void CGEventSourceSetLocalEventsSuppressionInterval(CGEventSourceRef source, CFTimeInterval seconds) {
    sourceIn(source)->settings_.localEventsSuppressionInterval = tavrin::Seconds{seconds};
}

CGEventRef CGEventCreate(CGEventSourceRef) {
    if (const auto* told = toldFor(__func__)) return (CGEventRef)told->retained();
    const auto place = pointer();
    if (!place) return nullptr;
    TavrinEvent* event = newEvent();
    event->mouse_.location = *place;
    return (CGEventRef)(__bridge_retained CFTypeRef)event;
}

CGEventRef CGEventCreateMouseEvent(CGEventSourceRef source, CGEventType type, CGPoint place, CGMouseButton) {
    if (const auto* told = toldFor(__func__)) return (CGEventRef)told->retained();
    TavrinEvent* event = newEvent();
    event->mouse_.type = static_cast<tavrin::MouseEventType>(type);
    event->mouse_.location = {place.x, place.y};
    event->mouse_.source = sourceOfMac(sourceIn(source));
    return (CGEventRef)(__bridge_retained CFTypeRef)event;
}

CGEventRef CGEventCreateKeyboardEvent(CGEventSourceRef, CGKeyCode key, bool keyDown) {
    if (const auto* told = toldFor(__func__)) return (CGEventRef)told->retained();
    TavrinEvent* event = newEvent();
    event->key_ = tavrin::KeyEvent{key, keyDown ? tavrin::KeyMotion::Down : tavrin::KeyMotion::Up};
    return (CGEventRef)(__bridge_retained CFTypeRef)event;
}

CGPoint CGEventGetLocation(CGEventRef event) {
    const auto place = eventIn(event)->mouse_.location;
    return CGPointMake(place.x, place.y);
}

CGEventType CGEventGetType(CGEventRef event) { return static_cast<CGEventType>(eventIn(event)->mouse_.type); }

CGEventFlags CGEventGetFlags(CGEventRef event) {
    return static_cast<CGEventFlags>(eventIn(event)->mouse_.flags);
}

int64_t CGEventGetIntegerValueField(CGEventRef event, CGEventField field) {
    const auto& mouse = eventIn(event)->mouse_;
    if (field == kCGMouseEventClickState) return mouse.clickState.value_or(0);
    const auto found = mouse.fields.find(static_cast<tavrin::EventField>(field));
    return found == mouse.fields.end() ? 0 : found->second;
}

void CGEventSetFlags(CGEventRef event, CGEventFlags flags) { eventIn(event)->mouse_.flags = flags; }

void CGEventSetIntegerValueField(CGEventRef event, CGEventField field, int64_t value) {
    auto& mouse = eventIn(event)->mouse_;
    if (field == kCGMouseEventClickState)
        mouse.clickState = value;
    else
        mouse.fields[static_cast<tavrin::EventField>(field)] = value;
}

void CGEventPost(CGEventTapLocation tap, CGEventRef event) {
    withPrepared(event, [&](const tavrin::PreparedEvent& prepared) {
        answeringMac()->events.post(prepared, static_cast<tavrin::EventTap>(tap));
    });
}

// A key that comes with modifiers is another one, and reaches nobody here.
void CGEventPostToPid(pid_t process, CGEventRef event) {
    if (const auto& key = eventIn(event)->key_) {
        if (answeringMac() && eventIn(event)->mouse_.flags == 0)
            answeringMac()->events.postKeyToProcess(*key, process);
        return;
    }
    withPrepared(event, [&](const tavrin::PreparedEvent& prepared) {
        answeringMac()->events.postToProcess(prepared, process);
    });
}

bool CGPreflightPostEventAccess(void) { return answeringMac() && answeringMac()->events.mayPost(); }

CGDirectDisplayID CGMainDisplayID(void) { return 1; }

CGError CGDisplayHideCursor(CGDirectDisplayID) {
    if (answeringMac()) answeringMac()->events.hideCursor();
    return kCGErrorSuccess;
}

CGError CGDisplayShowCursor(CGDirectDisplayID) {
    if (answeringMac()) answeringMac()->events.showCursor();
    return kCGErrorSuccess;
}

CGError CGWarpMouseCursorPosition(CGPoint place) {
    if (answeringMac()) answeringMac()->events.warpPointer({place.x, place.y});
    return kCGErrorSuccess;
}
}
