#include "seam/system/program_workspace.h"

#include "applications/application_icon.h"

namespace mac_model {

ProgramWorkspace::ProgramWorkspace(ProgramSide side) : side_(std::move(side)) {
    state_->applications = present();
    auto& processes = side_.mac.processes;
    subscriptions_.push_back(processes.onLaunched.subscribe([this](auto) { updateLater(); }));
    subscriptions_.push_back(processes.onEnded.subscribe([this](auto) { updateLater(); }));
}

std::vector<RunningApplication> ProgramWorkspace::present() const {
    std::vector<RunningApplication> applications;
    for (const auto* process : side_.mac.processes.processes()) {
        RunningApplication application;
        if (!process->application.bundleIdentifier.empty())
            application.bundleIdentifier = process->application.bundleIdentifier;
        application.processIdentifier = process->identifier;
        application.localizedName = process->application.name;
        application.isRegular = process->application.policy == Policy::Regular;
        applications.push_back(std::move(application));
    }
    return applications;
}

void ProgramWorkspace::updateLater() {
    // The list is taken now: a later launch is told in a turn of its own.
    side_.connection->post([state = state_, applications = present()] {
        state->applications = applications;
        state->onChanged.emit();
    });
}

Subscription ProgramWorkspace::onApplicationsChanged(std::function<void()> handler) {
    return state_->onChanged.subscribe(std::move(handler));
}

OperatingSystemVersion ProgramWorkspace::operatingSystemVersion() const {
    return {side_.mac.behaviour.version.major, side_.mac.behaviour.version.minor};
}

std::optional<std::string> ProgramWorkspace::bundleIdentifierAt(std::string_view path) const {
    return side_.mac.bundles.bundleIdentifierAt(path);
}

std::optional<std::vector<std::byte>> ProgramWorkspace::iconPngOfProcess(ProcessIdentifier identifier) const {
    const auto* process = side_.mac.processes.find(identifier);
    if (!process) return std::nullopt;
    const auto& application = process->application;
    return applicationIconPng(application.bundleIdentifier, application.name);
}

std::optional<std::vector<std::byte>>
ProgramWorkspace::iconPngOfBundle(std::string_view bundleIdentifier) const {
    const auto name = nameOfApplication(bundleIdentifier, side_.mac.bundles, side_.mac.processes);
    return name ? std::optional(applicationIconPng(bundleIdentifier, *name)) : std::nullopt;
}

std::optional<ProcessIdentifier> ProgramWorkspace::menuBarOwner() const {
    const auto* owner = side_.mac.processes.menuBarOwner();
    return owner ? std::optional(owner->identifier) : std::nullopt;
}

/// An active program gives its place to whom it names.
bool ProgramWorkspace::declinesActivation() const {
    constexpr int firstVersionThatDeclines = 14;
    const auto& behaviour = side_.mac.behaviour;
    const auto* front = side_.mac.processes.frontmost();
    return behaviour.version.major >= firstVersionThatDeclines &&
           behaviour.uncertainties.othersActivation == OthersActivation::Declined &&
           !(front && front->identifier == side_.connection->process());
}

bool ProgramWorkspace::activate(ProcessIdentifier process) {
    if (!side_.isOpen() || !side_.mac.processes.find(process)) return false;
    if (declinesActivation()) return true; // macOS says that it has sent the request
    side_.mac.scheduler.callInWorldAfter(side_.mac.behaviour.faults.activationTime, [side = side_, process] {
        if (side.isOpen()) side.mac.processes.activate(process);
    });
    return true;
}

bool ProgramWorkspace::openUrl(std::string_view url) {
    return side_.isOpen() && side_.mac.settings.open(url);
}

} // namespace mac_model
