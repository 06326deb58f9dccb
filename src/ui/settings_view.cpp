#include "ui/settings_view.h"

#include "views/view_builders.h"

#include <utility>

namespace tavrin {

namespace {

constexpr double windowWidth = 420;

View updatesRow(const SettingsModel& model) {
    auto automatic = checkbox("Automatically update Tavrin", model.updatesAutomatically,
                              model.actions.toggleAutomaticUpdates);
    automatic.isEnabled = model.hasUpdater;
    if (model.hasUpdater) return automatic;
    return column({std::move(automatic), text("This build has no updater.",
                                              {.style = TextStyle::Caption, .tone = Tone::Secondary})},
                  {.spacing = 2});
}

View accessRow(const SettingsModel& model) {
    if (model.isTrusted) {
        return row(
            {symbol("checkmark.circle.fill", 16, Tone::Positive), text("Accessibility access is on.")});
    }
    return row({symbol("hand.raised.fill", 16, Tone::Warning), text("Accessibility access is off."), spacer(),
                button("Open Accessibility Settings", model.actions.openAccessibilitySettings)});
}

} // namespace

View settingsView(SettingsModel model) {
    auto content =
        column({text("General", {.style = TextStyle::Heading}), std::move(model.shortcut), updatesRow(model),
                divider(), text("Access", {.style = TextStyle::Heading}), accessRow(model), divider(),
                text(model.version, {.style = TextStyle::Caption, .tone = Tone::Secondary})},
               {.spacing = 12, .padding = 20, .width = windowWidth});
    content.keyActions.push_back({"escape", model.actions.close});
    return content;
}

} // namespace tavrin
