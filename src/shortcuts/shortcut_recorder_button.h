#pragma once

#include "platform/keyboard.h"
#include "shortcuts/hot_key_shortcut.h"
#include "views/recorder_button.h"

#include <functional>
#include <optional>

namespace tavrin {

/// A button that records the next key with Control, Option or Command.
class ShortcutRecorderButton final : public RecorderButton {
  public:
    ShortcutRecorderButton(Keyboard& keyboard, KeyNames names, RecorderButtonHost& host);
    ShortcutRecorderButton(const ShortcutRecorderButton&) = delete;
    ShortcutRecorderButton& operator=(const ShortcutRecorderButton&) = delete;

    /// Without a shortcut the recording was cancelled. The callbacks may destroy the button.
    using RecordingEnded = std::function<void(const std::optional<HotKeyShortcut>&)>;

    std::function<void()> onRecordingBegan;
    RecordingEnded onRecordingEnded;

    void setShortcut(std::optional<HotKeyShortcut> shortcut);

    void clicked() override;
    void resignedFirstResponder() override;
    void movesFromWindow() override;

  private:
    KeyHandling keyDown(const KeyPress& press);
    void endRecording(const std::optional<HotKeyShortcut>& recorded);
    void cancel();
    void updateTitle();

    Keyboard& keyboard_;
    KeyNames names_;
    RecorderButtonHost& host_;
    std::optional<HotKeyShortcut> shortcut_;
    bool isRecording_ = false;
    Subscription keyDownMonitor_;
    Subscription resignKeyObserver_;
};

} // namespace tavrin
