#include "pins/running/pinned_runner.h"

#include "pins/running/app_menu_bar_session.h"
#include "pins/running/status_menu_session.h"
#include "platform/accessibility_names.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <utility>

namespace tavrin {

namespace {

PinnedRunFailure failureOf(StatusMenuSession::Failure failure, const std::string& application) {
    switch (failure) {
    case StatusMenuSession::Failure::DidNotOpen:
        break;
    case StatusMenuSession::Failure::TimedOut:
        return {PinnedRunFailure::TimedOut{application}};
    case StatusMenuSession::Failure::Denied:
        return {PinnedRunFailure::AccessibilityDenied{}};
    }
    return {PinnedRunFailure::MenuDidNotOpen{application}};
}

} // namespace

Task<PinnedRunResult> PinnedRunner::run(PinnedAction pin) {
    if (pin.origin() == PinnedMenuOrigin::AppMenuBar) co_return co_await runAppMenuBar(std::move(pin));
    co_return co_await runStatusItem(std::move(pin));
}

std::vector<RunningApplication> PinnedRunner::runningWith(const std::string& bundleIdentifier) const {
    std::vector<RunningApplication> matching;
    std::ranges::copy_if(access_.platform.workspace.runningApplications(), std::back_inserter(matching),
                         [&](const auto& running) {
                             return running.bundleIdentifier == bundleIdentifier &&
                                    running.processIdentifier > 0;
                         });
    return matching;
}

Task<PinnedRunner::Found> PinnedRunner::findStatusItem(PinnedAction pin) {
    const auto running = runningWith(pin.bundleIdentifier);
    if (running.empty())
        co_return std::unexpected(PinnedRunFailure{PinnedRunFailure::AppNotRunning{pin.applicationName}});
    const auto items = co_await access_.messenger.ask(
        [running, bundle = pin.bundleIdentifier](Accessibility& accessibility, const AbandonFlag& abandoned) {
            return LiveStatusItems::items(accessibility, running, bundle, abandoned);
        });
    if (!items) co_return std::unexpected(tavrin::failureOf(items.error(), pin.applicationName));
    std::vector<PinnedStatusItemReference::Candidate> candidates;
    for (const auto& item : *items) candidates.push_back(item.candidate());
    const auto index = pin.statusItem.select(candidates, access_.platform.text);
    if (!index || *index >= items->size())
        co_return std::unexpected(PinnedRunFailure{PinnedRunFailure::StatusItemMissing{pin.applicationName}});
    co_return (*items)[*index];
}

Task<PinnedRunResult> PinnedRunner::runStatusItem(PinnedAction pin) {
    auto item = co_await findStatusItem(pin);
    if (!item) co_return std::unexpected(item.error());
    StatusMenuSession session(access_, std::move(*item));
    const auto opened = co_await session.open(menuOpeningTime);
    if (!opened) co_return std::unexpected(failureOf(opened.error(), pin.applicationName));
    auto result = co_await session.press(std::move(pin));
    if (result) (void)co_await session.waitUntilMenuCloses(MenuAccess::closingTime);
    co_await session.close();
    co_return result;
}

Task<PinnedRunResult> PinnedRunner::runAppMenuBar(PinnedAction pin) {
    auto running = runningWith(pin.bundleIdentifier);
    if (running.empty())
        co_return std::unexpected(PinnedRunFailure{PinnedRunFailure::AppNotRunning{pin.applicationName}});
    auto application = co_await withMenuBar(std::move(running));
    AppMenuBarSession session(access_, std::move(application));
    co_return co_await session.press(std::move(pin));
}

/// An application's helpers may share its bundle. Where none has a menu bar, the first that doesn't say so,
/// or the first.
Task<RunningApplication> PinnedRunner::withMenuBar(std::vector<RunningApplication> running) {
    std::optional<std::size_t> silent;
    for (std::size_t i = 0; running.size() > 1 && i < running.size(); ++i) {
        const auto bar = co_await access_.messenger.readOne<AccessibilityElement>(
            access_.platform.accessibility.application(running[i].processIdentifier), ax::menuBar,
            MenuAccess::messagingTimeout);
        if (bar && *bar) co_return running[i];
        if (!bar && !silent) silent = i;
    }
    co_return running[silent.value_or(0)];
}

} // namespace tavrin
