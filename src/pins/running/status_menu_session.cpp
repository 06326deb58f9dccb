#include "pins/running/status_menu_session.h"

#include "concurrency/wait_until.h"
#include "gestures/click.h"
#include "platform/accessibility_names.h"
#include "platform/events.h"
#include "platform/screens.h"
#include "platform/window_server.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tavrin {

namespace {

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
    const auto attributes =
        read(accessibility, item.element, std::array{ax::shownMenu, ax::children}, timeout);
    if (!attributes)
        return {attributes.error() == ReadFailure::Denied ? Presence::Denied : Presence::Unanswered, {}};
    if (const auto shown = attributes->as<AccessibilityElement>(ax::shownMenu)) {
        const auto children = readOne<AccessibilityElements>(accessibility, *shown, ax::children, timeout);
        if (!children) return {Presence::Unanswered, {}};
        if (*children && !(*children)->empty()) return {Presence::Shown, shown};
    }
    // The item's menu may be in the tree while it is closed.
    if (!hasPopUpWindow(windowServer, item.processIdentifier)) return {};
    return menuAmong(accessibility, attributes->elements(ax::children), timeout);
}

StatusMenuSession::Sighting StatusMenuSession::menuAmong(Accessibility& accessibility,
                                                         const AccessibilityElements& children,
                                                         Seconds timeout) {
    for (const auto& child : children) {
        const auto attributes = read(accessibility, child, std::array{ax::role, ax::children}, timeout);
        if (!attributes) return {Presence::Unanswered, {}};
        const bool isMenu = attributes->as<std::string>(ax::role) == ax::menuRole;
        if (isMenu && !attributes->elements(ax::children).empty()) return {Presence::Shown, child};
    }
    return {};
}

Task<StatusMenuSession::Sighting> StatusMenuSession::look(Seconds timeout) {
    const auto sighting = co_await access_.messenger.ask(
        [&windowServer = std::as_const(access_.platform.windowServer), item = item_,
         timeout](Accessibility& accessibility, const AbandonFlag&) -> AxMessenger::Answer<Sighting> {
            return look(accessibility, windowServer, item, timeout);
        });
    co_return sighting.value_or(Sighting{Presence::Unanswered, {}});
}

Task<std::expected<void, StatusMenuSession::Failure>> StatusMenuSession::open(Seconds timeout) {
    const bool isPressable = std::ranges::find(item_.actions, ax::pressAction) != item_.actions.end();
    mayBeOpen_ = true;
    // What the answer says doesn't matter: an application may be unable to answer because its menu is open.
    (void)co_await access_.messenger.perform(item_.element,
                                             isPressable ? ax::pressAction : ax::showMenuAction,
                                             MenuAccess::messagingTimeoutWhileOpening);
    auto presence = co_await waitForMenu(timeout);
    if (presence == Presence::Absent && canBeClicked()) {
        openedByClick_ = true;
        (void)co_await postClick(access_.platform.events, {.location = item_.frame->middle()});
        presence = co_await waitForMenu(timeout);
    }
    if (co_await isCancelled()) co_return std::unexpected(Failure::DidNotOpen);
    if (presence == Presence::Shown) co_return std::expected<void, Failure>{};
    mayBeOpen_ = false;
    if (presence == Presence::Denied) co_return std::unexpected(Failure::Denied);
    co_return std::unexpected(presence == Presence::Unanswered ? Failure::TimedOut : Failure::DidNotOpen);
}

/// Unanswered when no look was answered: of such an application nothing is known, and a click would reach it
/// at some later time.
Task<StatusMenuSession::Presence> StatusMenuSession::waitForMenu(Seconds timeout) {
    seen_ = Presence::Unanswered;
    (void)co_await waitUntil(
        access_.platform.scheduler, [this] { return looksDecided(); }, MenuAccess::pollInterval, timeout);
    co_return seen_;
}

Task<bool> StatusMenuSession::looksDecided() {
    auto sighting = co_await look(MenuAccess::messagingTimeoutWhileOpening);
    if (sighting.presence == Presence::Shown) menu_ = std::move(sighting.menu);
    if (sighting.presence != Presence::Unanswered) seen_ = sighting.presence;
    co_return seen_ == Presence::Shown || seen_ == Presence::Denied;
}

bool StatusMenuSession::canBeClicked() const {
    if (!item_.frame || item_.frame->width <= 0 || item_.frame->height <= 0) return false;
    return std::ranges::any_of(access_.platform.screens.screens(), [&](const Screen& screen) {
        return screen.frame.contains(item_.frame->middle());
    });
}

Task<std::expected<PinnedMenuNode, ReadFailure>> StatusMenuSession::snapshot() {
    if (!menu_) co_return std::unexpected(ReadFailure::Abandoned);
    co_return co_await access_.messenger.ask(
        [reader = reader_, menu = *menu_](Accessibility&, const AbandonFlag& abandoned) {
            return reader->tree(menu, abandoned);
        });
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

/// A look that isn't answered ends the wait: each further look would cost as much.
Task<bool> StatusMenuSession::waitUntilMenuCloses(Seconds timeout) {
    seen_ = Presence::Shown;
    (void)co_await waitUntil(
        access_.platform.scheduler, [this] { return looksOtherThanShown(); }, MenuAccess::pollInterval,
        timeout);
    if (seen_ != Presence::Absent) co_return false;
    menu_.reset();
    mayBeOpen_ = false;
    co_return true;
}

Task<bool> StatusMenuSession::looksOtherThanShown() {
    const auto sighting = co_await look(MenuAccess::messagingTimeout);
    seen_ = sighting.presence;
    co_return seen_ != Presence::Shown;
}

Task<> StatusMenuSession::close() {
    if (!menu_ || !mayBeOpen_) co_return;
    const auto performed =
        co_await access_.messenger.perform(*menu_, ax::cancelAction, MenuAccess::messagingTimeout);
    if (co_await isCancelled()) co_return;
    const bool answers = performed || performed.error() != AccessibilityError::CannotComplete;
    if (answers && co_await waitUntilMenuCloses(MenuAccess::closingTime)) co_return;
    if (co_await isCancelled()) co_return;
    mayBeOpen_ = false;
    postEscape();
    if (answers) (void)co_await waitUntilMenuCloses(MenuAccess::closingTime);
}

} // namespace tavrin
