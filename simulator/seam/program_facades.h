#pragma once

#include "platform/accessibility.h"
#include "platform/application.h"
#include "platform/defaults.h"
#include "platform/platform.h"
#include "platform/screens.h"
#include "platform/status_items.h"
#include "platform/updates.h"
#include "seam/program_events.h"
#include "seam/program_keys.h"
#include "seam/program_window_server.h"
#include "seam/program_workspace.h"
#include "system/program_connection.h"

#include <memory>
#include <string>
#include <vector>

namespace mac_model {

class Mac;

// The operating system as one life of the program's process sees it. Once the connection has closed they
// change nothing, answer with what is harmless, and call nobody.

class ProgramApplication final : public tavrin::Application {
  public:
    ProgramApplication(Mac& mac, std::shared_ptr<ProgramConnection> connection)
        : mac_(mac)
        , connection_(std::move(connection)) {}

    tavrin::ProcessIdentifier processIdentifier() const override { return connection_->process(); }

    std::string bundleIdentifier() const override;
    std::string displayVersion() const override;
    void setActivationPolicy(tavrin::ActivationPolicy) override;
    void activate() override;
    tavrin::Subscription onDidBecomeActive(std::function<void()> handler) override;
    void showAboutPanel() override;
    void terminate() override;
    void replyToShouldTerminate(bool terminates) override;

  private:
    Mac& mac_;
    std::shared_ptr<ProgramConnection> connection_;
};

class ProgramAccessibility final : public tavrin::Accessibility {
  public:
    ProgramAccessibility(Mac& mac, std::shared_ptr<ProgramConnection> connection)
        : mac_(mac)
        , connection_(std::move(connection)) {}

    bool isTrusted() const override;
    tavrin::Subscription onTrustListChanged(std::function<void()> handler) override;
    tavrin::AccessibilityElement application(tavrin::ProcessIdentifier) override;
    void setMessagingTimeout(const tavrin::AccessibilityElement&, tavrin::Seconds) override;
    tavrin::AttributeResult attribute(const tavrin::AccessibilityElement&, std::string_view name) override;
    std::expected<std::vector<tavrin::AttributeResult>, tavrin::AccessibilityError>
    attributes(const tavrin::AccessibilityElement&, std::span<const std::string_view> names) override;
    std::expected<std::vector<std::string>, tavrin::AccessibilityError>
    actionNames(const tavrin::AccessibilityElement&) override;
    std::expected<void, tavrin::AccessibilityError> perform(const tavrin::AccessibilityElement&,
                                                            std::string_view action) override;

  private:
    /// The answer to a message that `ask` sends, unless the process ends before it comes.
    template <class Ask>
    auto message(const Ask& ask) -> decltype(ask());

    Mac& mac_;
    std::shared_ptr<ProgramConnection> connection_;
};

class ProgramDefaults final : public tavrin::Defaults {
  public:
    ProgramDefaults(Mac& mac, std::shared_ptr<ProgramConnection> connection)
        : mac_(mac)
        , connection_(std::move(connection)) {}

    tavrin::DefaultsDomain ownDomain() const override;
    std::optional<tavrin::DefaultsValue> value(const tavrin::DefaultsDomain&,
                                               std::string_view key) const override;
    void set(const tavrin::DefaultsDomain&, std::string_view key, tavrin::DefaultsValue) override;
    void remove(const tavrin::DefaultsDomain&, std::string_view key) override;
    std::vector<std::string> keys(const tavrin::DefaultsDomain&) const override;
    void synchronize(const tavrin::DefaultsDomain&) override;

  private:
    Mac& mac_;
    std::shared_ptr<ProgramConnection> connection_;
};

class ProgramScreens final : public tavrin::Screens {
  public:
    ProgramScreens(Mac& mac, std::shared_ptr<ProgramConnection> connection)
        : mac_(mac)
        , connection_(std::move(connection)) {}

    std::vector<tavrin::Screen> screens() const override;
    tavrin::Subscription onChanged(std::function<void()> handler) override;

  private:
    Mac& mac_;
    std::shared_ptr<ProgramConnection> connection_;
};

class ProgramStatusItems final : public tavrin::StatusItems {
  public:
    ProgramStatusItems(Mac& mac, std::shared_ptr<ProgramConnection> connection)
        : mac_(mac)
        , connection_(std::move(connection)) {}

    /// Makes a `ProgramStatusItem`.
    std::unique_ptr<tavrin::StatusItem> create(double length) override;

  private:
    Mac& mac_;
    std::shared_ptr<ProgramConnection> connection_;
};

class ProgramUpdater final : public tavrin::Updater {
  public:
    ProgramUpdater(tavrin::Updater& updater, std::shared_ptr<ProgramConnection> connection)
        : updater_(updater)
        , connection_(std::move(connection)) {}

    bool checksAutomatically() const override { return updater_.checksAutomatically(); }

    bool downloadsAutomatically() const override { return updater_.downloadsAutomatically(); }

    void setAutomatic(bool checksAndDownloads) override {
        if (connection_->isOpen()) updater_.setAutomatic(checksAndDownloads);
    }

    void checkNow() override {
        if (connection_->isOpen()) updater_.checkNow();
    }

  private:
    tavrin::Updater& updater_;
    std::shared_ptr<ProgramConnection> connection_;
};

class ProgramFacades {
  public:
    ProgramFacades(Mac&, std::shared_ptr<ProgramConnection>, tavrin::Presentation&);
    ProgramFacades(const ProgramFacades&) = delete;
    ProgramFacades& operator=(const ProgramFacades&) = delete;

    tavrin::Platform& platform() { return platform_; }

  private:
    ProgramApplication application_;
    ProgramAccessibility accessibility_;
    ProgramDefaults defaults_;
    ProgramEvents events_;
    ProgramHotKeys hotKeys_;
    ProgramKeyboard keyboard_;
    ProgramScreens screens_;
    ProgramStatusItems statusItems_;
    ProgramWindowServer windowServer_;
    ProgramWorkspace workspace_;
    std::unique_ptr<ProgramUpdater> updater_;
    tavrin::Platform platform_;
};

} // namespace mac_model
