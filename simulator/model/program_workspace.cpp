#include "model/program_workspace.h"

#include "model/mac.h"

namespace mac_model {

ProgramWorkspace::ProgramWorkspace(Mac& mac, std::shared_ptr<ProgramConnection> connection)
    : mac_(mac)
    , connection_(std::move(connection)) {
    state_->applications = present();
    auto& processes = mac_.processes();
    subscriptions_.push_back(processes.onLaunched.subscribe([this](auto) { updateLater(); }));
    subscriptions_.push_back(processes.onEnded.subscribe([this](auto) { updateLater(); }));
}

std::vector<tavrin::RunningApplication> ProgramWorkspace::present() const {
    std::vector<tavrin::RunningApplication> applications;
    for (const auto* process : mac_.processes().processes()) {
        tavrin::RunningApplication application;
        if (!process->application.bundleIdentifier.empty())
            application.bundleIdentifier = process->application.bundleIdentifier;
        application.processIdentifier = process->identifier;
        application.localizedName = process->application.name;
        applications.push_back(std::move(application));
    }
    return applications;
}

void ProgramWorkspace::updateLater() {
    // The list is the one of now: what is launched later comes with a turn of its own.
    connection_->post([state = state_, applications = present()] {
        state->applications = applications;
        state->onChanged.emit();
    });
}

tavrin::Subscription ProgramWorkspace::onApplicationsChanged(std::function<void()> handler) {
    return state_->onChanged.subscribe(std::move(handler));
}

tavrin::OperatingSystemVersion ProgramWorkspace::operatingSystemVersion() const {
    return {mac_.version().major, mac_.version().minor};
}

std::optional<std::string> ProgramWorkspace::bundleIdentifierAt(std::string_view path) const {
    return mac_.workspace().bundleIdentifierAt(path);
}

bool ProgramWorkspace::openUrl(std::string_view url) {
    return connection_->isOpen() && mac_.workspace().openUrl && mac_.workspace().openUrl(std::string(url));
}

} // namespace mac_model
