#include "core/first_run_hint.h"

#include "concurrency/scheduler.h"
#include "platform/application.h"
#include "platform/events.h"
#include "platform/workspace.h"
#include "views/view_builders.h"

#include <utility>

namespace tavrin {

namespace {

/// The glow behind the control swells and fades while the hint is on the screen.
constexpr Seconds coralPulseInterval{1.2};

View hintView() {
    auto words = text("Your menu bar items are tucked away here. Click to choose which ones show.");
    words.width = 240;
    return row({symbol("chevron.right.2", 18, Tone::Accent), std::move(words)},
               {.spacing = 10, .padding = 14});
}

} // namespace

FirstRunHint::FirstRunHint(const Platform& platform, Settings& settings, OwnStatusItems& items)
    : platform_(platform)
    , settings_(settings)
    , items_(items) {}

FirstRunHint::~FirstRunHint() { platform_.scheduler.cancelTimer(glowTimer_); }

void FirstRunHint::showIfPending() {
    if (popover_ || !settings_.boolean(Settings::pendingFirstRunHintKey)) return;
    const auto glyph = items_.controlGlyphFrame();
    if (!glyph || items_.isKeptOutOfMenuBar()) return;
    auto popover =
        platform_.presentation.makePopover(PopoverBehavior::Transient, [this] { popoverDidClose(); });
    popover->setContent(hintView());
    // The transient popover of an inactive application closes at the next event, whatever that is.
    platform_.application.activate();
    // Unseen, the hint stays owed.
    if (!popover->show(*items_.control(), *glyph) || !popover->isShown()) return;
    popover_ = std::move(popover);
    startGlow();
}

bool FirstRunHint::isShowingOrPending() const {
    return popover_ != nullptr || settings_.boolean(Settings::pendingFirstRunHintKey);
}

void FirstRunHint::dismiss() {
    popover_.reset();
    settle();
}

void FirstRunHint::settle() {
    if (settings_.boolean(Settings::pendingFirstRunHintKey)) {
        settings_.setBoolean(Settings::pendingFirstRunHintKey, false);
    }
    stopGlow();
}

void FirstRunHint::popoverDidClose() {
    popover_.reset();
    settle();
    const auto glyph = items_.controlGlyphFrame();
    const auto pointer = platform_.events.pointerLocation();
    if (!glyph || !pointer || !glyph->contains(*pointer)) return;
    closedByControlPressAt_ = platform_.scheduler.now();
    closedByControlPress_.emit();
}

bool FirstRunHint::wasJustClosedByControlPress() const {
    return closedByControlPressAt_ && platform_.scheduler.now() - *closedByControlPressAt_ < closingPressSpan;
}

void FirstRunHint::startGlow() {
    const auto swap = [this] {
        glowsBright_ = !glowsBright_ || platform_.workspace.isMotionReduced();
        items_.setGlow(glowsBright_ ? 1.0 : 0.4);
    };
    swap();
    glowTimer_ = platform_.scheduler.callEvery(coralPulseInterval, swap);
}

void FirstRunHint::stopGlow() {
    if (glowTimer_ == TimerIdentifier::None) return;
    platform_.scheduler.cancelTimer(std::exchange(glowTimer_, TimerIdentifier::None));
    glowsBright_ = false;
    items_.setGlow(0);
}

} // namespace tavrin
