#include "pins/running/app_menu_bar_session.h"

#include "concurrency/wait_until.h"
#include "platform/accessibility_names.h"
#include "platform/events.h"
#include "platform/window_server.h"

#include <algorithm>
#include <utility>

namespace tavrin {

namespace {

/// How long an application has to come to the front: many disable items while they aren't there.
constexpr Seconds comingForwardTime{0.5};

} // namespace

AppMenuBarSession::AppMenuBarSession(MenuAccess access, RunningApplication application)
    : access_(access)
    , application_(std::move(application))
    , reader_(std::make_shared<MenuTreeReader>(access.platform.accessibility,
                                               MenuTreeReader::appMenuBarLimits)) {}

AppMenuBarSession::~AppMenuBarSession() {
    if (isWalking_ && showsMenu()) postEscape();
}

bool AppMenuBarSession::showsMenu() const {
    return std::ranges::any_of(access_.platform.windowServer.onScreenWindows(),
                               [&](const OnScreenWindow& window) {
                                   return window.owner == application_.processIdentifier &&
                                          window.layer == OnScreenWindow::popUpMenuLayer;
                               });
}

void AppMenuBarSession::postEscape() {
    for (const auto motion : {KeyMotion::Down, KeyMotion::Up})
        access_.platform.events.postKeyToProcess({escapeKeyCode, motion}, application_.processIdentifier);
}

Task<PinnedRunResult> AppMenuBarSession::press(PinnedAction pin) {
    const auto name = pin.applicationName;
    co_await bringForward();
    const auto bar = co_await menuBar();
    if (!bar) co_return std::unexpected(failureOf(bar.error(), name));
    if (!*bar) {
        const auto step = pin.path.empty() ? pin.name : pin.path.front().title;
        co_return std::unexpected(PinnedRunFailure{PinnedRunFailure::ItemChanged{step, {}}});
    }
    MenuPathWalk walk(access_, reader_, std::move(pin));
    isWalking_ = true;
    auto result = co_await walk.press(**bar);
    if (co_await isCancelled()) co_return result;
    isWalking_ = false;
    if (walk.opened()) co_await close(*walk.opened(), walk.hasPressed());
    co_return result;
}

/// Since macOS 14 the system often declines such a request of an application that isn't active itself, and
/// obeys Accessibility. The reading that follows finds out an application that doesn't answer.
Task<> AppMenuBarSession::bringForward() {
    access_.platform.workspace.activate(application_.processIdentifier);
    const auto asked = co_await access_.messenger.setFlag(
        access_.platform.accessibility.application(application_.processIdentifier), ax::frontmost, true,
        MenuAccess::messagingTimeoutWhileOpening);
    if (!asked && asked.error() == AccessibilityError::CannotComplete) co_return;
    if (co_await sleepFor(MenuAccess::pollInterval) == Wake::CutShort) co_return;
    (void)co_await waitUntil(
        access_.platform.scheduler, [this] { return isFrontmostOrSilent(); }, MenuAccess::pollInterval,
        comingForwardTime - MenuAccess::pollInterval);
}

Task<bool> AppMenuBarSession::isFrontmostOrSilent() {
    const auto isFrontmost = co_await access_.messenger.readOne<bool>(
        access_.platform.accessibility.application(application_.processIdentifier), ax::frontmost,
        MenuAccess::messagingTimeoutWhileOpening);
    co_return !isFrontmost || isFrontmost->value_or(false);
}

Task<AppMenuBarSession::Bar> AppMenuBarSession::menuBar() {
    return access_.messenger.readOne<AccessibilityElement>(
        access_.platform.accessibility.application(application_.processIdentifier), ax::menuBar,
        MenuAccess::messagingTimeout);
}

/// A silent application would come to Escape after what the pressed item shows, and dismiss that.
Task<> AppMenuBarSession::close(AccessibilityElement opened, bool hasPressed) {
    if (!showsMenu()) co_return;
    const auto performed =
        co_await access_.messenger.perform(std::move(opened), ax::cancelAction, MenuAccess::messagingTimeout);
    const bool answers = performed || performed.error() != AccessibilityError::CannotComplete;
    if (co_await waitUntilMenuCloses() || co_await isCancelled()) co_return;
    if (!answers && hasPressed) co_return;
    postEscape();
    (void)co_await waitUntilMenuCloses();
}

Task<bool> AppMenuBarSession::waitUntilMenuCloses() {
    co_return co_await waitUntil(
        access_.platform.scheduler, [this] { return !showsMenu(); }, MenuAccess::pollInterval,
        MenuAccess::closingTime) == Waited::Met;
}

} // namespace tavrin
