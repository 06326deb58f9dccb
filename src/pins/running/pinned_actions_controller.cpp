#include "pins/running/pinned_actions_controller.h"

#include "concurrency/waits.h"
#include "pins/running/pinned_action_policy.h"
#include "pins/store/pinned_icon.h"
#include "platform/application.h"
#include "platform/workspace.h"

#include <exception>
#include <utility>

namespace tavrin {

namespace {

constexpr std::size_t runButton = 0;

std::string titleOfFailure(const PinnedAction& pin) { return "\"" + pin.name + "\" didn't run"; }

std::string whatRunDoes(const PinnedAction& pin, const Text& text) {
    const bool isStatusItem = pin.origin() == PinnedMenuOrigin::StatusItem;
    auto words = isStatusItem ? "Tavrin will open " + pin.applicationName + "'s menu bar menu and choose " +
                                    pin.pathDescription() + "."
                              : "Tavrin will bring " + pin.applicationName + " forward and choose " +
                                    pin.pathDescription() + " from its menus.";
    words += " You're only asked the first time.";
    if (PinnedActionPolicy::looksDisruptive(pin.path, text))
        words += "\n\nThis item looks like it may quit, sign out, delete or stop something.";
    return words;
}

} // namespace

PinnedActionsController::PinnedActionsController(const Platform& platform,
                                                 AccessibilityPermission& permission, Hooks hooks)
    : platform_(platform)
    , permission_(permission)
    , hooks_(std::move(hooks))
    , store_(platform.defaults, platform.text)
    , notice_(platform)
    , queue_(platform.scheduler.makeSerialQueue(platform.application.bundleIdentifier() + ".pinned-actions"))
    , runner_({platform, AxMessenger(platform.accessibility, *queue_)}) {
    store_.fillMissingIcons([this](const std::string& bundleIdentifier) {
        return PinnedIcon::pngData(platform_.workspace, std::nullopt, bundleIdentifier);
    });
    permissionObservation_ = permission_.onChanged([this](const bool&) {
        store_.clearFailures(PinnedRunFailure{PinnedRunFailure::AccessibilityDenied{}}.message());
    });
}

void PinnedActionsController::appendMenuSection(Menu& menu) {
    const auto& pins = store_.pins();
    if (pins.empty()) return;
    if (!menu.items.empty()) menu.items.push_back(MenuItem::separator());
    for (const auto& pin : pins) {
        MenuItem item;
        item.title = pin.name;
        item.picture = pin.iconPng;
        item.action = [this, id = pin.id] { run(id); };
        menu.items.push_back(std::move(item));
    }
}

bool PinnedActionsController::accepts(const Uuid& id) {
    const auto now = platform_.scheduler.now();
    const bool isRepeated =
        lastRunRequest_ && lastRunRequest_->id == id && now - lastRunRequest_->time < repeatedRequestSpan;
    if (!isRepeated) lastRunRequest_ = RunRequest{id, now};
    return !isRepeated;
}

void PinnedActionsController::run(const Uuid& id) {
    const auto pin = store_.pin(id);
    if (!pin || !accepts(id)) return;
    if (runningPinID_.get()) return tellThatAnotherRuns(*pin);
    if (confirmation_) {
        platform_.application.activate();
        return confirmation_->bringToFront();
    }
    permission_.refresh();
    if (!permission_.isTrusted())
        return report(*pin, PinnedRunFailure{PinnedRunFailure::AccessibilityDenied{}});
    if (!pin->hasConfirmedFirstRun) return confirmFirstRun(*pin);
    start(*pin);
}

/// A second request for the pin that runs needs no notice: its wish is being met.
void PinnedActionsController::tellThatAnotherRuns(const PinnedAction& pin) {
    if (runningPinID_.get() == pin.id) return;
    show({.style = PinnedNotice::Style::Failure,
          .title = titleOfFailure(pin),
          .message = "Another pinned action is still running.",
          .actionTitle = std::nullopt,
          .action = nullptr});
}

void PinnedActionsController::confirmFirstRun(const PinnedAction& pin) {
    platform_.application.activate();
    confirmation_ =
        platform_.presentation.showAlert({.messageText = "Run \"" + pin.name + "\"?",
                                          .informativeText = whatRunDoes(pin, platform_.text),
                                          .buttons = {"Run", "Cancel"},
                                          .icon = IconOfApplication{pin.bundleIdentifier}},
                                         [this, id = pin.id](std::size_t button) { answered(id, button); });
}

void PinnedActionsController::answered(const Uuid& id, std::size_t button) {
    confirmation_.reset();
    if (button != runButton) return;
    store_.markConfirmed(id);
    if (auto pin = store_.pin(id)) start(std::move(*pin));
}

void PinnedActionsController::start(PinnedAction pin) {
    notice_.close();
    runningPinID_.set(pin.id);
    runTask_ = tavrin::start(platform_.scheduler, perform(std::move(pin)));
}

Task<> PinnedActionsController::perform(PinnedAction pin) {
    const auto result = co_await runToItsEnd(pin);
    if (co_await isCancelled()) co_return;
    runningPinID_.set(std::nullopt);
    if (!result) co_return report(pin, result.error());
    store_.recordRun(pin.id, std::nullopt);
}

/// A fault that is thrown goes on to where faults are told, and the next pin runs all the same.
Task<PinnedRunResult> PinnedActionsController::runToItsEnd(PinnedAction pin) {
    try {
        co_return co_await runner_.run(std::move(pin));
    } catch (...) {
        runningPinID_.set(std::nullopt);
        std::rethrow_exception(std::current_exception());
    }
}

void PinnedActionsController::report(const PinnedAction& pin, const PinnedRunFailure& failure) {
    auto message = failure.message();
    if (failure.is<PinnedRunFailure::MenuDidNotOpen>() && hooks_.isHidingItems())
        message += " Tavrin is hiding items right now; show them and try again.";
    const bool isDenied = failure.is<PinnedRunFailure::AccessibilityDenied>();
    // From then on the permission looks for the access to come back, which clears the mark.
    if (isDenied) permission_.refresh();
    store_.recordRun(pin.id, message);
    show({.style = PinnedNotice::Style::Failure,
          .title = titleOfFailure(pin),
          .message = std::move(message),
          .actionTitle = isDenied ? "Open Settings" : "Edit Pin",
          .action = [this, isDenied, id = pin.id] {
              if (isDenied)
                  permission_.openSettings(platform_.workspace);
              else
                  hooks_.editPin(id);
          }});
}

} // namespace tavrin
