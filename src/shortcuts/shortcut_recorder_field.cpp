#include "shortcuts/shortcut_recorder_field.h"

#include "views/view_builders.h"

#include <memory>

namespace tavrin {

namespace {

constexpr double recorderWidth = 150; // for the longest title, so that it doesn't change while recording

std::shared_ptr<const RecorderButtonMaker> makerFor(const ShortcutRecorderField& field,
                                                    const Platform& platform) {
    auto maker = std::make_shared<RecorderButtonMaker>();
    maker->make = [&keyboard = platform.keyboard,
                   names = KeyNames(platform.keyboard, platform.text)](RecorderButtonHost& host) {
        return std::make_unique<ShortcutRecorderButton>(keyboard, names, host);
    };
    maker->update = [field](RecorderButton& made) {
        // Only fields make recorder buttons.
        auto& button = static_cast<ShortcutRecorderButton&>(made);
        button.onRecordingBegan = field.onRecordingBegan;
        button.onRecordingEnded = field.onRecordingEnded;
        button.setShortcut(field.shortcut);
    };
    return maker;
}

} // namespace

View ShortcutRecorderField::view(const Platform& platform) const {
    auto view = shortcutRecorder(makerFor(*this, platform));
    view.accessibilityLabel = accessibilityLabel;
    view.help = help;
    view.width = recorderWidth;
    return view;
}

View shortcutRecorderHelp() {
    return text("Press a key with Control, Option or Command. Esc cancels.",
                {.style = TextStyle::Caption, .tone = Tone::Secondary});
}

} // namespace tavrin
