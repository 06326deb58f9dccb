#include "ui/settings_view.h"

#include "views/view_builders.h"

#include <utility>
#include <vector>

namespace tavrin {

namespace {

constexpr double windowWidth = 480;
constexpr double triangleSize = 11;

View caution(const std::string& sentence) {
    return row({symbol("exclamationmark.triangle.fill", triangleSize, Tone::Warning),
                text(sentence, {.style = TextStyle::Caption})});
}

View approvalRow(const StartAtLoginModel& model) {
    auto line = caution("macOS waits for your approval under General › Login Items.");
    line.children.push_back(spacer());
    line.children.push_back(button("Open Login Items", model.openLoginItems));
    return line;
}

View notFoundRow(const StartAtLoginModel& model) {
    auto line =
        caution("macOS doesn’t find this copy of Tavrin. Move it to Applications and open it from there.");
    line.help = model.refusal.value_or("");
    return line;
}

View startAtLoginRow(const StartAtLoginModel& model) {
    auto box = checkbox("Start Tavrin at login", model.isOn, model.toggle);
    box.isEnabled = model.isOffered;
    std::vector<View> lines;
    lines.push_back(std::move(box));
    if (model.needsApproval) lines.push_back(approvalRow(model));
    if (!model.isOffered)
        lines.push_back(notFoundRow(model));
    else if (model.refusal)
        lines.push_back(caution(*model.refusal));
    return column(std::move(lines), {.spacing = 4});
}

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

/// A card under its heading.
View section(std::string title, std::vector<View> rows) {
    return column({text(std::move(title), {.style = TextStyle::Heading}),
                   card(std::move(rows), {.spacing = 12, .padding = 12})},
                  {.spacing = 8});
}

} // namespace

View settingsView(SettingsModel model) {
    auto content = column(
        {section("General", {startAtLoginRow(model.startAtLogin), divider(), std::move(model.shortcut)}),
         section("Updates", {updatesRow(model)}), section("Access", {accessRow(model)}),
         text(model.version, {.style = TextStyle::Caption, .tone = Tone::Secondary})},
        {.spacing = 16, .padding = 20, .width = windowWidth});
    content.keyActions.push_back({"escape", model.actions.close});
    return content;
}

} // namespace tavrin
