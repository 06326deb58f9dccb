#include "app/settings_window.h"

#include "platform/application.h"
#include "platform/workspace.h"
#include "shortcuts/toggle_shortcut_settings_view.h"
#include "views/view_builders.h"

#include <utility>

namespace tavrin {

namespace {

constexpr double windowWidth = 420;

View updatesRow(AppUpdates& updates) {
    View checkbox;
    checkbox.kind = ViewKind::Checkbox;
    checkbox.text = "Automatically update Tavrin";
    checkbox.isChecked = updates.isAutomatic();
    checkbox.isEnabled = updates.isAvailable();
    checkbox.onPress = [&updates] { updates.setAutomatic(!updates.isAutomatic()); };
    if (updates.isAvailable()) return checkbox;
    return column({std::move(checkbox), text("This build has no updater.",
                                             {.style = TextStyle::Caption, .tone = Tone::Secondary})},
                  {.spacing = 2});
}

View accessRow(const Platform& platform, bool isTrusted) {
    if (isTrusted) {
        return row(
            {symbol("checkmark.circle.fill", 16, Tone::Positive), text("Accessibility access is on.")});
    }
    return row({symbol("hand.raised.fill", 16, Tone::Warning), text("Accessibility access is off."), spacer(),
                button("Open Accessibility Settings",
                       [&platform] { platform.workspace.openUrl(AccessibilityPermission::settingsURL); })});
}

} // namespace

SettingsWindowController::SettingsWindowController(const Platform& platform,
                                                   AccessibilityPermission& permission, AppUpdates& updates,
                                                   ToggleShortcutController& toggleShortcut)
    : platform_(platform)
    , permission_(permission)
    , updates_(updates)
    , toggleShortcut_(toggleShortcut) {
    observations_.push_back(permission.onChanged([this](const bool&) { render(); }));
    observations_.push_back(updates.onChanged([this](const bool&) { render(); }));
    observations_.push_back(toggleShortcut.onChanged([this] { render(); }));
}

SettingsWindowController::~SettingsWindowController() = default;

void SettingsWindowController::show() {
    permission_.refresh();
    if (!window_) window_ = platform_.presentation.makeWindow("Tavrin Settings", [this] { window_.reset(); });
    render();
    platform_.application.activate();
    window_->makeKeyAndOrderFront();
}

void SettingsWindowController::render() {
    if (window_) window_->setContent(content());
}

View SettingsWindowController::content() {
    auto content = column({text("General", {.style = TextStyle::Heading}),
                           toggleShortcutSettingsView(platform_, toggleShortcut_), updatesRow(updates_),
                           divider(), text("Access", {.style = TextStyle::Heading}),
                           accessRow(platform_, permission_.isTrusted()), divider(),
                           text(platform_.application.displayVersion(),
                                {.style = TextStyle::Caption, .tone = Tone::Secondary})},
                          {.spacing = 12, .padding = 20, .width = windowWidth});
    content.keyActions.push_back({"escape", [this] {
                                      if (window_) window_->close();
                                  }});
    return content;
}

} // namespace tavrin
