#include "gestures/window_server_status_item_bridge.h"

#include "concurrency/waits.h"
#include "gestures/click.h"
#include "gestures/pointer_gesture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace tavrin {

namespace {

constexpr std::int32_t windowCountMax = 2048;

bool isWithin(double difference, double tolerance) { return std::abs(difference) <= tolerance; }

/// Accessibility and the window server measure an item differently: the one its button, the other its window.
/// The tolerances are points.
bool canBe(const Rect& window, const Rect& item) {
    return isWithin(window.midX() - item.midX(), 3) && isWithin(window.midY() - item.midY(), 3) &&
           isWithin(window.width - item.width, 16) && isWithin(window.height - item.height, 14);
}

bool isSame(const Rect& present, const Rect& remembered) {
    constexpr double tolerance = 0.5;
    return isWithin(present.minX() - remembered.minX(), tolerance) &&
           isWithin(present.minY() - remembered.minY(), tolerance) &&
           isWithin(present.width - remembered.width, tolerance) &&
           isWithin(present.height - remembered.height, tolerance);
}

WindowServerStatusItemBridge::EventResult resultOf(GestureResult result) {
    using enum WindowServerStatusItemBridge::EventResult;
    if (result == GestureResult::posted) return posted;
    return result == GestureResult::noEvents ? noEventSource : cancelled;
}

EventSourceSettings sourceSettings() {
    return {.state = EventSourceState::HidSystem,
            .localEventsSuppressionInterval = Seconds{0},
            .localEventsFilter = {{EventSuppressionState::SuppressionInterval, allLocalEvents},
                                  {EventSuppressionState::RemoteMouseDrag, allLocalEvents}}};
}

} // namespace

std::vector<WindowServerMenuBarWindow>
WindowServerStatusItemBridge::menuBarWindows(WindowServerMenuBar::Functions& functions) {
    const auto connection = functions.mainConnection();
    const auto count = functions.windowCount(connection);
    if (!count || *count < 1 || *count > windowCountMax) return {};
    std::vector<WindowServerMenuBar::WindowNumber> numbers(static_cast<std::size_t>(*count));
    const auto listed = functions.processMenuBarWindowList(connection, numbers);
    if (!listed || *listed < 0 || *listed > *count) return {};
    numbers.resize(static_cast<std::size_t>(*listed));

    std::vector<WindowServerMenuBarWindow> windows;
    for (const auto number : numbers) {
        const auto frame = functions.screenRect(connection, number);
        if (frame && frame->width > 0 && frame->height > 0) windows.push_back({number, *frame});
    }
    return windows;
}

std::optional<WindowServerMenuBarWindow>
WindowServerStatusItemBridge::matchingWindow(const Rect& itemAccessibilityFrame,
                                             std::span<const WindowServerMenuBarWindow> windows) {
    const auto matches = [&](const auto& window) { return canBe(window.frame, itemAccessibilityFrame); };
    const auto found = std::ranges::find_if(windows, matches);
    if (found == windows.end()) return std::nullopt;
    if (std::any_of(std::next(found), windows.end(), matches)) return std::nullopt;
    return *found;
}

bool WindowServerStatusItemBridge::windowStillMatches(const WindowServerMenuBarWindow& window,
                                                      WindowServerMenuBar::Functions& functions) {
    const auto frame = functions.screenRect(functions.mainConnection(), window.identifier);
    return frame && isSame(*frame, window.frame);
}

std::optional<WindowServerMenuBarWindow> WindowServerStatusItemBridge::findWindow(ProcessIdentifier process,
                                                                                  const Rect& frame) const {
    if (process < 1 || !(frame.width > 0 && frame.height > 0)) return std::nullopt;
    auto* functions = windowServer_.menuBarFunctions();
    if (!functions) return std::nullopt;
    const auto window = matchingWindow(frame, menuBarWindows(*functions));
    if (!window || !windowStillMatches(*window, *functions)) return std::nullopt;
    return window;
}

std::expected<WindowServerStatusItemBridge::Addressee, WindowServerStatusItemBridge::EventResult>
WindowServerStatusItemBridge::address(ProcessIdentifier process, const Rect& frame) const {
    const auto window = findWindow(process, frame);
    if (!window) return std::unexpected(EventResult::unavailable);
    auto source = events_.createSource(sourceSettings());
    if (!source) return std::unexpected(EventResult::noEventSource);
    return Addressee{process, window->identifier, std::move(source)};
}

std::map<EventField, std::int64_t> WindowServerStatusItemBridge::Addressee::fields() const {
    return {{EventField::TargetProcess, process},
            {EventField::WindowNumber, window},
            {EventField::WindowUnderPointer, window},
            {EventField::WindowThatCanHandle, window}};
}

MouseEvent WindowServerStatusItemBridge::Addressee::event(MouseEventType type, Point location) const {
    return {.type = type, .location = location, .clickState = {}, .fields = fields(), .source = source};
}

Task<WindowServerStatusItemBridge::EventResult>
WindowServerStatusItemBridge::postClick(ProcessIdentifier processIdentifier, Rect itemAccessibilityFrame) {
    if (co_await isCancelled()) co_return EventResult::cancelled;
    const auto addressee = address(processIdentifier, itemAccessibilityFrame);
    if (!addressee) co_return addressee.error();

    co_return resultOf(co_await tavrin::postClick(events_, {.location = itemAccessibilityFrame.middle(),
                                                            .fields = addressee->fields(),
                                                            .source = addressee->source,
                                                            .settleWait = clickSettleWait}));
}

Task<WindowServerStatusItemBridge::EventResult>
WindowServerStatusItemBridge::postCommandMove(ProcessIdentifier processIdentifier,
                                              Rect sourceAccessibilityFrame, Rect anchor, Point destination) {
    if (co_await isCancelled()) co_return EventResult::cancelled;
    const auto addressee = address(processIdentifier, sourceAccessibilityFrame);
    if (!addressee) co_return addressee.error();

    auto down = addressee->event(MouseEventType::LeftDown, sourceAccessibilityFrame.middle());
    down.flags = commandEventFlag;
    auto up = addressee->event(MouseEventType::LeftUp, destination);
    const auto gesture = PointerGesture::create(events_, std::move(up),
                                                {.tap = EventTap::Session, .process = processIdentifier});
    if (!gesture || !gesture->post(std::move(down))) co_return EventResult::noEventSource;
    if (co_await sleepFor(moveHoldWait) == Wake::CutShort) co_return EventResult::cancelled;
    for (const auto& place : std::array{anchor.middle(), destination}) {
        if (!gesture->post(addressee->event(MouseEventType::Moved, place)))
            co_return EventResult::noEventSource;
    }
    if (co_await sleepFor(moveArrivalWait) == Wake::CutShort) co_return EventResult::cancelled;
    gesture->release();
    if (co_await sleepFor(moveSettleWait) == Wake::CutShort) co_return EventResult::cancelled;
    co_return EventResult::posted;
}

} // namespace tavrin
