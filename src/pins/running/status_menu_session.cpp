#include "pins/running/status_menu_session.h"

#include "concurrency/waits.h"
#include "gestures/pointer_gesture.h"
#include "platform/events.h"
#include "platform/screens.h"
#include "platform/window_server.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tavrin {

namespace {

constexpr Seconds clickTime{0.01};

bool hasPopUpWindow(const WindowServer& windowServer, ProcessIdentifier owner) {
    return std::ranges::any_of(windowServer.onScreenWindows(), [&](const OnScreenWindow& window) {
        return window.owner == owner && window.layer == OnScreenWindow::popUpMenuLayer;
    });
}

} // namespace

StatusMenuSession::StatusMenuSession(MenuAccess access, LiveStatusItem item)
    : access_(access)
    , item_(std::move(item))
    , reader_(std::make_shared<MenuTreeReader>(access.platform.accessibility,
                                               MenuTreeReader::statusItemLimits)) {}

StatusMenuSession::~StatusMenuSession() {
    if (mayBeOpen_) postEscape();
}

void StatusMenuSession::postEscape() {
    auto& events = access_.platform.events;
    for (const auto motion : {KeyMotion::Down, KeyMotion::Up})
        events.postKeyToProcess({escapeKeyCode, motion}, item_.processIdentifier);
}

StatusMenuSession::Sighting StatusMenuSession::look(Accessibility& accessibility,
                                                    const WindowServer& windowServer,
                                                    const LiveStatusItem& item, Seconds timeout) {
    const auto results =
        MenuAX::read(accessibility, item.element, std::array{MenuAX::shownMenu, ax::children});
    if (!results)
        return {results.error() == MenuReadFailure::Denied ? Presence::Denied : Presence::Unanswered, {}};
    if (const auto shown = MenuAX::element(results->front())) {
        accessibility.setMessagingTimeout(*shown, timeout);
        const auto children = MenuAX::read(accessibility, *shown, std::array{ax::children});
        if (!children) return {Presence::Unanswered, {}};
        if (!MenuAX::children(children->front()).empty()) return {Presence::Shown, shown};
    }
    // The item's menu may be in the tree while it is closed.
    if (!hasPopUpWindow(windowServer, item.processIdentifier)) return {};
    return menuAmong(accessibility, MenuAX::children(results->back()), timeout);
}

StatusMenuSession::Sighting StatusMenuSession::menuAmong(Accessibility& accessibility,
                                                         const MenuAX::Elements& children, Seconds timeout) {
    for (const auto& child : children) {
        accessibility.setMessagingTimeout(child, timeout);
        const auto results = MenuAX::read(accessibility, child, std::array{ax::role, ax::children});
        if (!results) return {Presence::Unanswered, {}};
        const bool isMenu = MenuAX::string(results->front()) == MenuAX::menuRole;
        if (isMenu && !MenuAX::children(results->back()).empty()) return {Presence::Shown, child};
    }
    return {};
}

Task<StatusMenuSession::Sighting> StatusMenuSession::look(Seconds timeout) {
    const auto& platform = access_.platform;
    auto sighting = co_await runOn(access_.queue, [&accessibility = platform.accessibility,
                                                   &windowServer = std::as_const(platform.windowServer),
                                                   item = item_, timeout](const AbandonFlag&) {
        return look(accessibility, windowServer, item, timeout);
    });
    co_return sighting.value_or(Sighting{Presence::Unanswered, {}});
}

Task<std::optional<AccessibilityError>> StatusMenuSession::perform(AccessibilityElement element,
                                                                   std::string_view action) {
    const auto performed = co_await runOn(
        access_.queue, [&accessibility = access_.platform.accessibility, element,
                        action](const AbandonFlag&) { return accessibility.perform(element, action); });
    if (!performed) co_return AccessibilityError::CannotComplete;
    co_return *performed ? std::nullopt : std::optional(performed->error());
}

Task<std::expected<void, StatusMenuSession::Failure>> StatusMenuSession::open(Seconds timeout) {
    auto& accessibility = access_.platform.accessibility;
    accessibility.setMessagingTimeout(item_.element, MenuAX::messagingTimeoutWhileOpening);
    const bool isPressable = std::ranges::find(item_.actions, MenuAX::pressAction) != item_.actions.end();
    mayBeOpen_ = true;
    // What the answer says doesn't matter: an application may be unable to answer because its menu is open.
    (void)co_await perform(item_.element, isPressable ? MenuAX::pressAction : MenuAX::showMenuAction);
    auto presence = co_await waitForMenu(timeout);
    if (presence == Presence::Absent && canBeClicked()) {
        openedByClick_ = true;
        co_await click();
        presence = co_await waitForMenu(timeout);
    }
    if (co_await isCancelled()) co_return std::unexpected(Failure::DidNotOpen);
    accessibility.setMessagingTimeout(item_.element, MenuAX::messagingTimeout);
    if (presence == Presence::Shown) co_return std::expected<void, Failure>{};
    mayBeOpen_ = false;
    if (presence == Presence::Denied) co_return std::unexpected(Failure::Denied);
    co_return std::unexpected(presence == Presence::Unanswered ? Failure::TimedOut : Failure::DidNotOpen);
}

/// Unanswered when no look was answered: of such an application nothing is known, and a click would reach it
/// at some later time.
Task<StatusMenuSession::Presence> StatusMenuSession::waitForMenu(Seconds timeout) {
    const auto& scheduler = access_.platform.scheduler;
    const auto until = scheduler.now() + timeout;
    auto seen = Presence::Unanswered;
    do {
        auto sighting = co_await look(MenuAX::messagingTimeoutWhileOpening);
        if (sighting.presence == Presence::Shown) menu_ = std::move(sighting.menu);
        if (sighting.presence == Presence::Shown || sighting.presence == Presence::Denied)
            co_return sighting.presence;
        if (sighting.presence == Presence::Absent) seen = Presence::Absent;
        if (co_await sleepFor(MenuAccess::pollInterval) == Wake::CutShort) co_return seen;
    } while (scheduler.now() < until);
    co_return seen;
}

bool StatusMenuSession::canBeClicked() const {
    if (!item_.frame || item_.frame->width <= 0 || item_.frame->height <= 0) return false;
    return std::ranges::any_of(access_.platform.screens.screens(), [&](const Screen& screen) {
        return screen.frame.contains(item_.frame->middle());
    });
}

Task<> StatusMenuSession::click() {
    MouseEvent event;
    event.type = MouseEventType::LeftUp;
    event.location = item_.frame->middle();
    event.clickState = 1;
    const auto gesture = PointerGesture::create(access_.platform.events, event,
                                                {.tap = EventTap::Session, .process = std::nullopt});
    if (!gesture) co_return;
    auto down = event;
    down.type = MouseEventType::LeftDown;
    if (!gesture->post(down)) co_return;
    if (co_await sleepFor(clickTime) == Wake::CutShort) co_return;
    gesture->release();
    gesture->restore();
}

Task<std::expected<PinnedMenuNode, MenuReadFailure>> StatusMenuSession::snapshot() {
    if (!menu_) co_return std::unexpected(MenuReadFailure::Abandoned);
    auto tree =
        co_await runOn(access_.queue, [reader = reader_, menu = *menu_](const AbandonFlag& abandoned) {
            return reader->tree(menu, abandoned);
        });
    co_return tree.value_or(std::unexpected(MenuReadFailure::Abandoned));
}

Task<PinnedRunResult> StatusMenuSession::press(PinnedAction pin) {
    if (!menu_)
        co_return std::unexpected(PinnedRunFailure{PinnedRunFailure::MenuDidNotOpen{pin.applicationName}});
    MenuPathWalk walk(access_, reader_, std::move(pin));
    auto result = co_await walk.press(*menu_);
    // The item may have done what it does, and shown something that Escape would dismiss.
    if (walk.hasPressed() && !result) mayBeOpen_ = false;
    co_return result;
}

Task<bool> StatusMenuSession::waitUntilMenuCloses(Seconds timeout) {
    const auto& scheduler = access_.platform.scheduler;
    const auto until = scheduler.now() + timeout;
    do {
        const auto sighting = co_await look(MenuAX::messagingTimeout);
        if (sighting.presence == Presence::Absent) {
            menu_.reset();
            mayBeOpen_ = false;
            co_return true;
        }
        if (sighting.presence != Presence::Shown) co_return false; // more looks would cost as much each
        if (co_await sleepFor(MenuAccess::pollInterval) == Wake::CutShort) co_return false;
    } while (scheduler.now() < until);
    co_return false;
}

Task<> StatusMenuSession::close() {
    if (!menu_ || !mayBeOpen_) co_return;
    const auto error = co_await perform(*menu_, MenuAX::cancelAction);
    if (co_await isCancelled()) co_return;
    if (error != AccessibilityError::CannotComplete && co_await waitUntilMenuCloses(MenuAccess::closingTime))
        co_return;
    if (co_await isCancelled()) co_return;
    mayBeOpen_ = false;
    postEscape();
    if (error != AccessibilityError::CannotComplete)
        (void)co_await waitUntilMenuCloses(MenuAccess::closingTime);
}

} // namespace tavrin
