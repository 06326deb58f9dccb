#include "seam/program_facades.h"

#include "mac/mac.h"
#include "seam/program_status_item.h"

namespace mac_model {

namespace {

constexpr tavrin::Seconds activationTime{0.02};

Policy policyOf(tavrin::ActivationPolicy policy) {
    switch (policy) {
    case tavrin::ActivationPolicy::Regular:
        return Policy::Regular;
    case tavrin::ActivationPolicy::Accessory:
        return Policy::Accessory;
    case tavrin::ActivationPolicy::Prohibited:
        return Policy::Background;
    }
    return Policy::Accessory;
}

tavrin::Screen screenOf(const ScreenSpec& spec) {
    return {spec.frame, spec.scale, spec.menuBarHeight, spec.leftMenuBarArea, spec.rightMenuBarArea};
}

} // namespace

std::string ProgramApplication::bundleIdentifier() const { return mac_.program().info().bundleIdentifier; }

std::string ProgramApplication::displayVersion() const { return mac_.program().info().displayVersion; }

void ProgramApplication::setActivationPolicy(tavrin::ActivationPolicy policy) {
    if (connection_->isOpen()) mac_.processes().setPolicy(connection_->process(), policyOf(policy));
}

void ProgramApplication::activate() {
    // Becoming active is a request that the window server grants a moment later.
    mac_.scheduler().callInWorldAfter(activationTime, [&mac = mac_, connection = connection_] {
        if (connection->isOpen()) mac.processes().activate(connection->process());
    });
}

tavrin::Subscription ProgramApplication::onDidBecomeActive(std::function<void()> handler) {
    return connection_->relay(mac_.program().onActivated, std::move(handler));
}

void ProgramApplication::showAboutPanel() {
    if (connection_->isOpen() && mac_.program().hooks.showAboutPanel) mac_.program().hooks.showAboutPanel();
}

void ProgramApplication::terminate() {
    if (connection_->isOpen()) mac_.program().terminate();
}

void ProgramApplication::replyToShouldTerminate(bool terminates) {
    if (connection_->isOpen()) mac_.program().replyToShouldTerminate(terminates);
}

tavrin::DefaultsDomain ProgramDefaults::ownDomain() const { return mac_.programDomain(); }

std::optional<tavrin::DefaultsValue> ProgramDefaults::value(const tavrin::DefaultsDomain& domain,
                                                            std::string_view key) const {
    return mac_.preferences().value(domain, key);
}

void ProgramDefaults::set(const tavrin::DefaultsDomain& domain, std::string_view key,
                          tavrin::DefaultsValue value) {
    if (connection_->isOpen()) mac_.preferences().set(domain, key, std::move(value));
}

void ProgramDefaults::remove(const tavrin::DefaultsDomain& domain, std::string_view key) {
    if (connection_->isOpen()) mac_.preferences().remove(domain, key);
}

std::vector<std::string> ProgramDefaults::keys(const tavrin::DefaultsDomain& domain) const {
    return mac_.preferences().keys(domain);
}

void ProgramDefaults::synchronize(const tavrin::DefaultsDomain& domain) {
    if (connection_->isOpen()) mac_.preferences().flush(domain);
}

std::vector<tavrin::Screen> ProgramScreens::screens() const {
    std::vector<tavrin::Screen> screens;
    for (const auto& spec : mac_.screens().screens()) screens.push_back(screenOf(spec));
    return screens;
}

tavrin::Subscription ProgramScreens::onChanged(std::function<void()> handler) {
    return connection_->relay(mac_.screens().onNotice, std::move(handler));
}

std::unique_ptr<tavrin::StatusItem> ProgramStatusItems::create(double length) {
    return std::make_unique<ProgramStatusItem>(mac_, connection_, length);
}

ProgramFacades::ProgramFacades(Mac& mac, std::shared_ptr<ProgramConnection> connection,
                               tavrin::Presentation& presentation)
    : application_(mac, connection)
    , accessibility_(mac, connection)
    , defaults_(mac, connection)
    , events_(mac, connection)
    , hotKeys_(mac, connection)
    , keyboard_(mac, connection)
    , screens_(mac, connection)
    , statusItems_(mac, connection)
    , windowServer_(mac, connection)
    , workspace_(mac, connection)
    , updater_(mac.updater() ? std::make_unique<ProgramUpdater>(*mac.updater(), connection) : nullptr)
    , platform_{mac.scheduler(), application_, accessibility_, defaults_,        events_,
                hotKeys_,        keyboard_,    presentation,   mac.randomness(), screens_,
                statusItems_,    mac.text(),   windowServer_,  workspace_,       updater_.get()} {}

} // namespace mac_model
