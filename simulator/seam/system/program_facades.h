#pragma once

#include "platform/accessibility.h"
#include "platform/application.h"
#include "platform/platform.h"
#include "platform/screens.h"
#include "platform/status_items.h"
#include "platform/updates.h"
#include "seam/system/program_defaults.h"
#include "seam/system/program_event_monitors.h"
#include "seam/system/program_events.h"
#include "seam/system/program_keys.h"
#include "seam/system/program_login_item.h"
#include "seam/system/program_side.h"
#include "seam/system/program_visibility_service.h"
#include "seam/system/program_window_server.h"
#include "seam/system/program_workspace.h"
#include "vocabulary/vocabulary.h"

#include <memory>
#include <string>
#include <vector>

namespace mac_model {

class ProgramHost;

// The operating system as one life of the program's process sees it.

class ProgramApplication final : public tavrin::Application {
  public:
    ProgramApplication(ProgramSide side, ProgramHost& host) : side_(std::move(side)), host_(host) {}

    ProcessIdentifier processIdentifier() const override { return side_.connection->process(); }

    std::string bundleIdentifier() const override;
    std::string displayVersion() const override;
    void setActivationPolicy(ActivationPolicy) override;
    void activate() override;
    void activateIgnoringOthers() override;
    bool isActive() const override;
    Subscription onDidBecomeActive(std::function<void()> handler) override;
    bool takesKeys() const override;
    Subscription onKeysReleased(std::function<void()> handler) override;
    void showAboutPanel() override;
    void announce(std::string sentence) override;
    void terminate() override;
    void replyToShouldTerminate(bool terminates) override;

  private:
    void becomeActiveAfter(Seconds);

    ProgramSide side_;
    ProgramHost& host_;
};

class ProgramAccessibility final : public tavrin::Accessibility {
  public:
    explicit ProgramAccessibility(ProgramSide side) : side_(std::move(side)) {}

    bool isTrusted() const override;
    void requestTrust() override;
    Subscription onTrustListChanged(std::function<void()> handler) override;
    AccessibilityElement application(ProcessIdentifier) override;
    std::optional<ProcessIdentifier> processOf(const AccessibilityElement&) const override;
    void setMessagingTimeout(const AccessibilityElement&, Seconds) override;
    AttributeResult attribute(const AccessibilityElement&, std::string_view name) override;
    std::expected<std::vector<AttributeResult>, AccessibilityError>
    attributes(const AccessibilityElement&, std::span<const std::string_view> names) override;
    std::expected<std::vector<std::string>, AccessibilityError>
    actionNames(const AccessibilityElement&) override;
    std::expected<void, AccessibilityError> perform(const AccessibilityElement&,
                                                    std::string_view action) override;
    std::expected<void, AccessibilityError> setFlag(const AccessibilityElement&, std::string_view attribute,
                                                    bool value) override;

  private:
    /// The answer to a message that `ask` sends, unless the process ends before it comes.
    template <class Ask>
    auto message(const Ask& ask) -> decltype(ask());

    ProgramSide side_;
};

class ProgramScreens final : public tavrin::Screens {
  public:
    explicit ProgramScreens(ProgramSide side) : side_(std::move(side)) {}

    std::vector<tavrin::Screen> screens() const override;
    Subscription onChanged(std::function<void()> handler) override;
    bool areShown() const override;
    Subscription onShownChanged(std::function<void()> handler) override;

  private:
    ProgramSide side_;
};

class ProgramStatusItems final : public tavrin::StatusItems {
  public:
    explicit ProgramStatusItems(ProgramSide side) : side_(std::move(side)) {}

    /// Makes a `ProgramStatusItem`.
    std::unique_ptr<StatusItem> create(double length) override;
    Subscription onDrawnChanged(std::function<void()> handler) override;

  private:
    ProgramSide side_;
};

/// Only for a program that has the framework in its bundle. A search always finds the program up to date.
class ProgramUpdater final : public tavrin::Updater {
  public:
    explicit ProgramUpdater(ProgramSide side) : side_(std::move(side)) {}

    bool checksAutomatically() const override { return side_.mac.updater->checksAutomatically(); }

    bool downloadsAutomatically() const override { return side_.mac.updater->downloadsAutomatically(); }

    void setAutomatic(bool checksAndDownloads) override {
        if (side_.isOpen()) side_.mac.updater->setAutomatic(checksAndDownloads);
    }

    void checkNow() override {
        if (side_.isOpen()) side_.mac.panels.showUpToDate();
    }

  private:
    ProgramSide side_;
};

class ProgramFacades {
  public:
    ProgramFacades(const ProgramSide&, ProgramHost&, tavrin::Presentation&);
    ProgramFacades(const ProgramFacades&) = delete;
    ProgramFacades& operator=(const ProgramFacades&) = delete;

    tavrin::Platform& platform() { return platform_; }

  private:
    ProgramApplication application_;
    ProgramAccessibility accessibility_;
    ProgramDefaults defaults_;
    ProgramEventMonitors eventMonitors_;
    ProgramEvents events_;
    ProgramHotKeys hotKeys_;
    ProgramKeyboard keyboard_;
    ProgramLoginItem loginItem_;
    ProgramScreens screens_;
    ProgramStatusItems statusItems_;
    ProgramVisibilityService visibilityService_;
    ProgramWindowServer windowServer_;
    ProgramWorkspace workspace_;
    std::unique_ptr<ProgramUpdater> updater_;
    tavrin::Platform platform_;
};

} // namespace mac_model
