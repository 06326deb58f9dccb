#include "shortcuts/toggle_shortcut_settings_view.h"

#include "shortcuts/shortcut_recorder_field.h"
#include "views/view_builders.h"

#include <string>
#include <utility>
#include <vector>

namespace tavrin {

namespace {

const std::string label = "Toggle shortcut";

View recorder(const Platform& platform, ToggleShortcutController& controller) {
    ShortcutRecorderField field;
    field.accessibilityLabel = label;
    field.shortcut = controller.shortcut();
    field.onRecordingBegan = [&controller] { controller.suspend(); };
    field.onRecordingEnded = [&controller](const std::optional<HotKeyShortcut>& recorded) {
        if (recorded)
            controller.update(*recorded);
        else
            controller.resume();
    };
    return field.view(platform);
}

} // namespace

View toggleShortcutSettingsView(const Platform& platform, ToggleShortcutController& controller) {
    auto clear = button("Clear", [&controller] { controller.clear(); });
    clear.isEnabled = controller.shortcut() || controller.errorMessage();
    std::vector<View> lines;
    lines.push_back(row({text(label), spacer(), recorder(platform, controller), std::move(clear)}));
    if (controller.errorMessage()) lines.push_back(text(*controller.errorMessage(), {.tone = Tone::Warning}));
    lines.push_back(shortcutRecorderHelp());
    return column(std::move(lines), {.spacing = 4});
}

} // namespace tavrin
