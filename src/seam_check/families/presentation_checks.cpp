#include "concurrency/waits.h"
#include "platform/application.h"
#include "platform/presentation.h"
#include "platform/screens.h"
#include "platform/window_server.h"
#include "seam_check/all_checks.h"
#include "seam_check/findings.h"
#include "seam_check/own_windows.h"
#include "seam_check/shown_item.h"
#include "seam_check/waiting.h"
#include "seam_check/words.h"
#include "views/recorder_button.h"
#include "views/view_builders.h"

#include <algorithm>
#include <memory>
#include <string>

namespace tavrin::seam_check {

namespace {

using namespace std::chrono_literals;

/// How often something told that it closed, and whether always on the main thread.
struct Closings {
    int count = 0;
    bool isOnMain = true;
};

std::function<void()> notesIn(const std::shared_ptr<Closings>& closings, Scheduler& scheduler) {
    return [closings, &scheduler] {
        ++closings->count;
        closings->isOnMain = closings->isOnMain && scheduler.isMainThread();
    };
}

void expectOne(Findings& findings, const Closings& closings) {
    findings.expect(closings.count == 1,
                    "it told " + std::to_string(closings.count) + " times that it has closed");
    findings.expect(closings.isOnMain, "it told so off the main thread");
}

constexpr Seconds animationTime = 800ms; // longer than macOS takes to close anything

constexpr auto notListed = "the window server doesn't list it";
constexpr auto stillListed = "the window server lists it after it has gone";

View note(const std::string& words) { return column({text(words)}, {.padding = 12}); }

Task<Verdict> popoversTellOnceThatTheyClosed(Platform platform) {
    const auto shown = co_await shownItem(platform, 40);
    if (!shown) co_return shown.error();
    const auto& item = *shown;
    const auto closings = std::make_shared<Closings>();
    const auto popover = platform.presentation.makePopover(PopoverBehavior::ApplicationDefined,
                                                           notesIn(closings, platform.scheduler));
    popover->setContent(note("Self-check of Tavrin"));
    const OwnWindows windows(platform);
    Findings findings;
    findings.expect(!popover->isShown(), "it is shown before it was");
    findings.expect(popover->show(*item, item->frame().value_or(Rect{})), "it could not be shown");
    findings.expect(popover->isShown(), "it is not shown");
    findings.expect(co_await windows.comes(), notListed);
    const auto seen = windows.appeared();
    (void)co_await sleepFor(300ms);
    findings.expect(popover->isShown(), "it did not stay");
    popover->setContent(note("Its content can change"));
    popover->close();
    (void)co_await sleepFor(animationTime);
    findings.expect(!popover->isShown(), "it is shown after it was closed");
    findings.expect(co_await windows.goes(), stillListed);
    popover->close();
    (void)co_await sleepFor(animationTime);
    expectOne(findings, *closings);
    co_return findings.verdict("It was listed as " + said(seen) + ", closed, and told so once.");
}

Task<Verdict> popoversAreShownAgain(Platform platform) {
    const auto shown = co_await shownItem(platform, 40);
    if (!shown) co_return shown.error();
    const auto& item = *shown;
    const auto closings = std::make_shared<Closings>();
    const auto popover =
        platform.presentation.makePopover(PopoverBehavior::Transient, notesIn(closings, platform.scheduler));
    popover->setBehavior(PopoverBehavior::ApplicationDefined);
    popover->setContent(note("Self-check of Tavrin"));
    for (int n = 0; n < 2; ++n) {
        (void)popover->show(*item, item->frame().value_or(Rect{}));
        (void)co_await sleepFor(300ms);
        popover->close();
        (void)co_await sleepFor(animationTime);
    }
    if (closings->count != 2)
        co_return failed("Shown and closed twice, it told so " + std::to_string(closings->count) + " times.");
    co_return passed("Shown and closed twice, it told so twice.");
}

Task<Verdict> destroyedPopoversAreSilent(Platform platform) {
    const auto shown = co_await shownItem(platform, 40);
    if (!shown) co_return shown.error();
    const auto& item = *shown;
    const auto closings = std::make_shared<Closings>();
    auto popover = platform.presentation.makePopover(PopoverBehavior::ApplicationDefined,
                                                     notesIn(closings, platform.scheduler));
    popover->setContent(note("Self-check of Tavrin"));
    const OwnWindows windows(platform);
    const bool wasShown = popover->show(*item, item->frame().value_or(Rect{})) && co_await windows.comes();
    popover.reset();
    (void)co_await sleepFor(animationTime);
    Findings findings;
    findings.expect(wasShown, notListed);
    findings.expect(co_await windows.goes(), stillListed);
    findings.expect(closings->count == 0, "it told that it has closed");
    co_return findings.verdict("It went without a word.");
}

Task<Verdict> popoversNeedAnItem(Platform platform) {
    const auto shown = co_await shownItem(platform, 40);
    if (!shown) co_return shown.error();
    const auto& item = *shown;
    item->setVisible(false);
    (void)co_await comesTrue(platform, [&item] { return !item->frame(); }, 2s);
    if (item->frame()) co_return inapplicable("An invisible item still has a window.");
    const auto popover = platform.presentation.makePopover(PopoverBehavior::ApplicationDefined, [] {});
    popover->setContent(note("Nobody should see this"));
    if (popover->show(*item, {0, 0, 40, 24}) || popover->isShown())
        co_return failed("It was shown all the same.");
    co_return passed("It was not shown.");
}

/// Every kind of view, with what a person could use.
View everything(std::string heading) {
    auto list = scroll(column({text("One"), text("Two"), text("Three")}), 30);
    auto draggable = card({text("A card")});
    draggable.dragValue = "card";
    draggable.onDrop = [](const std::string&) {};
    draggable.contextMenu = {{"An action", [] {}}};
    draggable.isFocusable = true;
    draggable.accessibilityLabel = "A card with an action";
    return column({text(std::move(heading), {.style = TextStyle::Title}), divider(),
                   row({symbol("checkmark.circle", 20, Tone::Positive), symbol("no such symbol", 0),
                        icon({"com.apple.finder"}, 16), spacer(), progress()}),
                   checkbox("A check box", false, nullptr),
                   button("A button", [] {}, {.style = ButtonStyle::Prominent}), draggable, list},
                  {.padding = 16, .width = 320});
}

Task<Verdict> windowsTellOnceThatTheyClose(Platform platform) {
    const auto closings = std::make_shared<Closings>();
    const auto window =
        platform.presentation.makeWindow("Self-check of Tavrin", notesIn(closings, platform.scheduler));
    window->setContent(everything("Every kind of view"));
    const OwnWindows windows(platform);
    Findings findings;
    findings.expect(!window->isVisible(), "it is visible before it was shown");
    window->makeKeyAndOrderFront();
    findings.expect(co_await windows.comes(), notListed);
    findings.expect(window->isVisible(), "it is not visible");
    const auto seen = windows.appeared();
    window->setContent(everything("Another heading"));
    (void)co_await sleepFor(300ms);
    findings.expect(window->isVisible(), "it did not stay when its content changed");
    window->close();
    (void)co_await sleepFor(animationTime);
    findings.expect(!window->isVisible(), "it is visible after it was closed");
    findings.expect(co_await windows.goes(), stillListed);
    window->close();
    (void)co_await sleepFor(animationTime);
    expectOne(findings, *closings);
    co_return findings.verdict("It showed every kind of view, listed as " + said(seen) +
                               ", closed, and told so once.");
}

Task<Verdict> destroyedWindowsAreSilent(Platform platform) {
    const auto closings = std::make_shared<Closings>();
    auto window =
        platform.presentation.makeWindow("Self-check of Tavrin", notesIn(closings, platform.scheduler));
    window->setContent(note("Self-check of Tavrin"));
    const OwnWindows windows(platform);
    window->makeKeyAndOrderFront();
    const bool wasShown = co_await windows.comes() && window->isVisible();
    window.reset();
    (void)co_await sleepFor(animationTime);
    Findings findings;
    findings.expect(wasShown, notListed);
    findings.expect(co_await windows.goes(), stillListed);
    findings.expect(closings->count == 0, "it told that it closes");
    co_return findings.verdict("It went without a word.");
}

/// Whether the frame is in the top right of a screen, below its menu bar.
bool isBelowMenuBar(const Platform& platform, const Rect& frame) {
    constexpr double marginMax = 40;
    return std::ranges::any_of(platform.screens.screens(), [&](const Screen& screen) {
        const double below = frame.minY() - (screen.frame.minY() + screen.menuBarHeight);
        const double beside = screen.frame.maxX() - frame.maxX();
        return below >= -1 && below <= marginMax && beside >= -1 && beside <= marginMax;
    });
}

Task<Verdict> windowsOpenWhereTold(Platform platform) {
    const auto window = platform.presentation.makeWindow("Self-check of Tavrin", [] {});
    window->setContent(note("Below the menu bar"));
    window->placeBelowMenuBar();
    const OwnWindows windows(platform);
    window->makeKeyAndOrderFront();
    if (!co_await windows.comes()) co_return failed("The window server doesn't list it.");
    const auto frame = windows.appeared().value_or(Rect{});
    if (!isBelowMenuBar(platform, frame)) co_return failed("It is " + said(frame) + ".");
    co_return passed("It is " + said(frame) + ".");
}

bool isOnScreen(const Platform& platform, Rect area) {
    const auto own = platform.application.processIdentifier();
    return std::ranges::any_of(platform.windowServer.onScreenWindows(), [&](const OnScreenWindow& window) {
        return window.owner == own && window.layer > 0 && window.frame.intersects(area);
    });
}

Task<Verdict> panelsShowBelowTheirAnchor(Platform platform) {
    const auto screens = platform.screens.screens();
    if (screens.empty()) co_return skipped("There is no screen.");
    const auto& screen = screens.front().frame;
    const Rect anchor{screen.midX() - 20, screen.minY() + 200, 40, 20};
    const Rect below{anchor.x, anchor.maxY() + 15, anchor.width, 4};
    auto panel = platform.presentation.makePanel();
    panel->setContent(note("Self-check of Tavrin"));
    Findings findings;
    findings.expect(!panel->isShown() && !isOnScreen(platform, below), "it is shown before it was");
    panel->show(anchor);
    (void)co_await sleepFor(300ms);
    findings.expect(panel->isShown(), "it is not shown");
    findings.expect(isOnScreen(platform, below), "the window server has no window of it below its anchor");
    panel->close();
    (void)co_await sleepFor(animationTime);
    findings.expect(!panel->isShown() && !isOnScreen(platform, below), "it is there after it was closed");
    panel->show(anchor);
    (void)co_await sleepFor(300ms);
    panel.reset();
    (void)co_await sleepFor(animationTime);
    findings.expect(!isOnScreen(platform, below), "it is there after it was destroyed");
    co_return findings.verdict("It showed, and the window server listed it.");
}

Task<Verdict> destroyedAlertsGiveNoAnswer(Platform platform) {
    const auto answers = std::make_shared<int>(0);
    const OwnWindows windows(platform);
    auto alert = platform.presentation.showAlert({.messageText = "Self-check of Tavrin",
                                                  .informativeText = "This alert goes by itself.",
                                                  .buttons = {"OK", "Cancel"},
                                                  .icon = std::nullopt},
                                                 [answers](std::size_t) { ++*answers; });
    const bool hasCome = co_await windows.comes();
    const auto seen = windows.appeared();
    alert->bringToFront();
    (void)co_await sleepFor(300ms);
    alert.reset();
    const bool hasGone = co_await windows.goes();
    Findings findings;
    findings.expect(hasCome, notListed);
    findings.expect(hasGone, stillListed);
    findings.expect(*answers == 0, "it was answered");
    co_return findings.verdict("Listed as " + said(seen) +
                               ", it went without an answer, and work went on while it was there.");
}

/// What a recorder learns of its button.
struct RecorderNotes {
    RecorderButtonHost* host = nullptr;
    int focusLost = 0;
    int departures = 0;
};

class NotingRecorder final : public RecorderButton {
  public:
    NotingRecorder(std::shared_ptr<RecorderNotes> notes, RecorderButtonHost& host)
        : notes_(std::move(notes)) {
        notes_->host = &host;
        host.show("Record", RecorderLook::Resting);
    }

    NotingRecorder(const NotingRecorder&) = delete;
    NotingRecorder& operator=(const NotingRecorder&) = delete;

    ~NotingRecorder() override { notes_->host = nullptr; }

    void clicked() override {}

    void resignedFirstResponder() override { ++notes_->focusLost; }

    void movesFromWindow() override { ++notes_->departures; }

  private:
    std::shared_ptr<RecorderNotes> notes_;
};

View recorderView(const std::shared_ptr<RecorderNotes>& notes) {
    auto maker = std::make_shared<RecorderButtonMaker>();
    maker->make = [notes](RecorderButtonHost& host) { return std::make_unique<NotingRecorder>(notes, host); };
    maker->update = [](RecorderButton&) {};
    return column({text("A recorder"), shortcutRecorder(std::move(maker))}, {.padding = 16});
}

Task<Verdict> recordersKnowTheirButtons(Platform platform) {
    const auto notes = std::make_shared<RecorderNotes>();
    auto window = platform.presentation.makeWindow("Self-check of Tavrin", [] {});
    window->setContent(recorderView(notes));
    window->makeKeyAndOrderFront();
    (void)co_await sleepFor(300ms);
    if (!notes->host) co_return failed("No button was made for it.");
    Findings findings;
    findings.expect(notes->host->isInWindow(), "its button is in no window");
    findings.expect(notes->host->makeFirstResponder(), "its button was refused the keyboard");
    findings.expect(notes->host->isFirstResponder(), "its button didn't get the keyboard");
    notes->host->show("Type a shortcut", RecorderLook::Recording);
    window->setContent(note("No recorder any more"));
    (void)co_await sleepFor(300ms);
    findings.expect(notes->departures >= 1, "it wasn't told that its button goes");
    window.reset();
    (void)co_await sleepFor(300ms); // AppKit may hold the button until its turn of the run loop has ended
    findings.expect(!notes->host, "it outlasts its button");
    co_return findings.verdict("Its button took the keyboard and went; of losing the keyboard it was told " +
                               counted(static_cast<std::size_t>(notes->focusLost), "time") + ".");
}

} // namespace

std::vector<Check> presentationChecks() {
    constexpr auto family = "presentation";
    return {
        changes(family, "A popover shows at its item, and tells once that it has closed.",
                popoversTellOnceThatTheyClosed),
        changes(family, "A popover can be shown again, whatever its behaviour was at first.",
                popoversAreShownAgain),
        changes(family, "A popover that is destroyed closes without telling.", destroyedPopoversAreSilent),
        changes(family, "A popover of an item without a window isn't shown.", popoversNeedAnItem),
        changes(family, "A window shows every kind of view, and tells once that it closes.",
                windowsTellOnceThatTheyClose),
        changes(family, "A window that is told to opens below the menu bar, at the right.",
                windowsOpenWhereTold),
        changes(family, "A panel shows below its anchor, where the window server lists it, until it goes.",
                panelsShowBelowTheirAnchor),
        changes(family, "An alert that is destroyed goes without an answer.", destroyedAlertsGiveNoAnswer),
        changes(family, "A recorder's button takes the keyboard, and the recorder is told when it goes.",
                recordersKnowTheirButtons),
        changes(family, "A window that is destroyed closes without telling.", destroyedWindowsAreSilent),
    };
}

} // namespace tavrin::seam_check
