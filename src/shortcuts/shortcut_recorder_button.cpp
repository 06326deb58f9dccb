#include "shortcuts/shortcut_recorder_button.h"

#include <utility>

namespace tavrin {

namespace {

constexpr KeyCode escapeKey = 53;

} // namespace

ShortcutRecorderButton::ShortcutRecorderButton(Keyboard& keyboard, KeyNames names, RecorderButtonHost& host)
    : keyboard_(keyboard)
    , names_(names)
    , host_(host) {}

void ShortcutRecorderButton::setShortcut(std::optional<HotKeyShortcut> shortcut) {
    shortcut_ = shortcut;
    updateTitle();
}

void ShortcutRecorderButton::clicked() {
    if (isRecording_ || !host_.isInWindow() || !host_.makeFirstResponder()) return;
    isRecording_ = true;
    keyDownMonitor_ = keyboard_.monitorKeyDown([this](const KeyPress& press) { return keyDown(press); });
    resignKeyObserver_ = host_.onWindowResignedKey([this] { cancel(); });
    updateTitle();
    if (const auto began = onRecordingBegan) began();
}

KeyHandling ShortcutRecorderButton::keyDown(const KeyPress& press) {
    if (!host_.isFirstResponder()) return KeyHandling::PassedOn;
    if (press.keyCode == escapeKey)
        endRecording(std::nullopt);
    else if (press.modifierFlags & HotKeyShortcut::leadingModifiersMask)
        endRecording(HotKeyShortcut(press.keyCode, press.modifierFlags));
    else
        keyboard_.beep();
    return KeyHandling::Consumed;
}

void ShortcutRecorderButton::resignedFirstResponder() { cancel(); }

void ShortcutRecorderButton::movesFromWindow() { cancel(); }

void ShortcutRecorderButton::cancel() {
    if (isRecording_) endRecording(std::nullopt);
}

void ShortcutRecorderButton::endRecording(const std::optional<HotKeyShortcut>& recorded) {
    isRecording_ = false;
    keyDownMonitor_.cancel();
    resignKeyObserver_.cancel();
    updateTitle();
    if (const auto ended = onRecordingEnded) ended(recorded);
}

void ShortcutRecorderButton::updateTitle() {
    if (isRecording_) return host_.show("Type shortcut…", RecorderLook::Recording);
    host_.show(shortcut_ ? names_.displayString(*shortcut_) : "Record Shortcut", RecorderLook::Resting);
}

} // namespace tavrin
