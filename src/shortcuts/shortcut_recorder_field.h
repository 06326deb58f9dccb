#pragma once

#include "platform/platform.h"
#include "shortcuts/shortcut_recorder_button.h"
#include "views/view.h"

#include <functional>
#include <optional>
#include <string>

namespace tavrin {

/// Places a recorder in a view tree.
struct ShortcutRecorderField {
    std::string accessibilityLabel;
    std::string help;
    std::optional<HotKeyShortcut> shortcut;
    std::function<void()> onRecordingBegan;
    ShortcutRecorderButton::RecordingEnded onRecordingEnded;

    View view(const Platform& platform) const;
};

/// The line that stands under recorders.
View shortcutRecorderHelp();

} // namespace tavrin
