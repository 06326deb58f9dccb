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
    if (mayBeOpen_ && isKnownToBeOpen()) postEscape();
}

void StatusMenuSession::postEscape() {
    auto& events = access_.platform.events;
    for (const auto motion : {KeyMotion::Down, KeyMotion::Up})
        events.postKeyToProcess({escapeKeyCode, motion}, item_.processIdentifier);
}

StatusMenuSession::Sighting StatusMenuSession::unseen(ReadFailure failure) {
    return {failure == ReadFailure::Denied ? Presence::Denied : Presence::Unanswered, {}};
}

StatusMenuSession::Sighting StatusMenuSession::look(Accessibility& accessibility,
                                                    const WindowServer& windowServer,
                                                    const LiveStatusItem& item, Seconds timeout) {
    const auto attributes =
        read(accessibility, item.element, std::array{ax::shownMenu, ax::children}, timeout);
    if (!attributes) return unseen(attributes.error());
    const auto shown = attributes->as<AccessibilityElement>(ax::shownMenu);
    if (shown) {
        const auto children = readOne<AccessibilityElements>(accessibility, *shown, ax::children, timeout);
        if (!children) return unseen(children.error());
        if (*children && !(*children)->empty()) return {Presence::Shown, shown};
    }
    const auto told = shown ? Sighting{Presence::Empty, shown} : Sighting{};
    // The item's menu may be in the tree while it is closed.
    if (!hasPopUpWindow(windowServer, item.processIdentifier)) return told;
    auto found = menuAmong(accessibility, attributes->elements(ax::children), timeout);
    return found.presence == Presence::Absent ? told : found;
}

StatusMenuSession::Sighting StatusMenuSession::menuAmong(Accessibility& accessibility,
                                                         const AccessibilityElements& children,
                                                         Seconds timeout) {
    Sighting empty;
    for (const auto& child : children) {
        const auto attributes = read(accessibility, child, std::array{ax::role, ax::children}, timeout);
        if (!attributes) return unseen(attributes.error());
        if (attributes->as<std::string>(ax::role) != ax::menuRole) continue;
        if (!attributes->elements(ax::children).empty()) return {Presence::Shown, child};
        if (!empty.menu) empty = {Presence::Empty, child};
    }
    return empty;
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
    const bool hasNoItems = presence == Presence::Absent || presence == Presence::Empty;
    if (hasNoItems && canBeClicked()) {
        openedByClick_ = true;
        (void)co_await postClick(access_.platform.events, {.location = item_.frame->middle()});
        presence = co_await waitForMenu(timeout);
    }
    if (co_await isCancelled()) co_return std::unexpected(Failure::DidNotOpen);
    if (presence == Presence::Shown) co_return std::expected<void, Failure>{};
    co_await close();
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
    if (sighting.menu) menu_ = std::move(sighting.menu);
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
    hasPressed_ = walk.hasPressed();
    if (hasPressed_) seen_ = Presence::Unanswered;
    co_return result;
}

/// A look that isn't answered ends the wait: each further look would cost as much.
Task<bool> StatusMenuSession::waitUntilMenuCloses(Seconds timeout) {
    (void)co_await waitUntil(
        access_.platform.scheduler, [this] { return looksOtherThanOpen(); }, MenuAccess::pollInterval,
        timeout);
    if (seen_ != Presence::Absent) co_return false;
    menu_.reset();
    mayBeOpen_ = false;
    co_return true;
}

Task<bool> StatusMenuSession::looksOtherThanOpen() {
    auto sighting = co_await look(MenuAccess::messagingTimeout);
    if (sighting.menu) menu_ = std::move(sighting.menu);
    seen_ = sighting.presence;
    co_return seen_ != Presence::Shown&& seen_ != Presence::Empty;
}

/// Once an item was pressed, only the application can say so: what an item shows comes to a silent
/// application's mind before the key, which would dismiss it.
bool StatusMenuSession::isKnownToBeOpen() const {
    if (seen_ == Presence::Shown || seen_ == Presence::Empty) return true;
    return seen_ != Presence::Absent && !hasPressed_ &&
           hasPopUpWindow(access_.platform.windowServer, item_.processIdentifier);
}

Task<> StatusMenuSession::close() {
    if (!mayBeOpen_) co_return;
    if (!menu_ && co_await looksOtherThanOpen() && seen_ == Presence::Absent) mayBeOpen_ = false;
    const bool answers = mayBeOpen_ && menu_ && co_await cancelMenu();
    if (answers && co_await waitUntilMenuCloses(MenuAccess::closingTime)) co_return;
    if (co_await isCancelled()) co_return;
    if (!std::exchange(mayBeOpen_, false) || !isKnownToBeOpen()) co_return;
    postEscape();
    if (answers) (void)co_await waitUntilMenuCloses(MenuAccess::closingTime);
}

/// Whether the application answers. The action may come to it later than the answer was waited for.
Task<bool> StatusMenuSession::cancelMenu() {
    const auto performed =
        co_await access_.messenger.perform(*menu_, ax::cancelAction, MenuAccess::messagingTimeout);
    const bool answers = performed || performed.error() != AccessibilityError::CannotComplete;
    if (!answers && hasPressed_) seen_ = Presence::Unanswered;
    co_return answers;
}

} // namespace tavrin
