#include "system/process_table.h"

#include <algorithm>
#include <ranges>

namespace mac_model {

ProcessTable::ProcessTable(const std::vector<ApplicationSpec>& applications) {
    for (const auto& application : applications) highest_ = std::max(highest_, application.processIdentifier);
    for (const auto& application : applications) {
        auto process =
            std::make_unique<Process>(Process{application.processIdentifier, application, Quitting::AtOnce});
        if (process->identifier == 0) process->identifier = ++highest_;
        byIdentifier_[process->identifier] = process.get();
        inOrder_.push_back(std::move(process));
    }
    // The first regular application is in front, the others behind it as listed.
    for (const auto& process : std::views::reverse(inOrder_))
        if (process->application.policy == Policy::Regular) activations_.push_back(process->identifier);
}

std::vector<const Process*> ProcessTable::processes() const {
    std::vector<const Process*> all;
    for (const auto& process : inOrder_) all.push_back(process.get());
    return all;
}

const Process* ProcessTable::find(ProcessIdentifier identifier) const {
    const auto found = byIdentifier_.find(identifier);
    return found == byIdentifier_.end() ? nullptr : found->second;
}

std::vector<ProcessIdentifier> ProcessTable::withBundle(std::string_view bundleIdentifier) const {
    std::vector<ProcessIdentifier> matches;
    for (const auto& process : inOrder_)
        if (!bundleIdentifier.empty() && process->application.bundleIdentifier == bundleIdentifier)
            matches.push_back(process->identifier);
    return matches;
}

std::expected<ProcessIdentifier, std::string> ProcessTable::launch(ApplicationSpec application,
                                                                   Quitting quitting) {
    auto identifier = application.processIdentifier;
    if (find(identifier))
        return std::unexpected("The process identifier " + std::to_string(identifier) + " is in use.");
    if (identifier == 0) identifier = highest_ + 1;
    highest_ = std::max(highest_, identifier);
    application.processIdentifier = identifier;
    inOrder_.push_back(std::make_unique<Process>(Process{identifier, std::move(application), quitting}));
    byIdentifier_[identifier] = inOrder_.back().get();
    onLaunched.emit(identifier);
    if (inOrder_.back()->application.policy == Policy::Regular) activate(identifier);
    return identifier;
}

void ProcessTable::end(ProcessIdentifier identifier) {
    if (!find(identifier)) return;
    const bool wasListed = std::erase(activations_, identifier) > 0;
    byIdentifier_.erase(identifier);
    std::erase_if(inOrder_, [&](const auto& process) { return process->identifier == identifier; });
    onEnded.emit(identifier);
    if (wasListed) onFrontChanged.emit();
}

template <class Change>
std::expected<void, std::string> ProcessTable::forEach(std::string_view bundleIdentifier,
                                                       const Change& change) {
    const auto matches = withBundle(bundleIdentifier);
    if (matches.empty())
        return std::unexpected("No running application has the bundle identifier \"" +
                               std::string(bundleIdentifier) + "\".");
    for (const auto identifier : matches) change(*byIdentifier_.at(identifier));
    return {};
}

std::expected<void, std::string> ProcessTable::quit(std::string_view bundleIdentifier) {
    return forEach(bundleIdentifier, [this](Process& process) {
        if (process.quitting == Quitting::AfterItsAnswer) return onToldToQuit.emit(process.identifier);
        end(process.identifier);
    });
}

std::expected<void, std::string> ProcessTable::hang(std::string_view bundleIdentifier) {
    return forEach(bundleIdentifier, [](Process& process) { process.application.responding = false; });
}

std::expected<void, std::string> ProcessTable::resume(std::string_view bundleIdentifier) {
    return forEach(bundleIdentifier, [this](Process& process) {
        process.application.responding = true;
        onResumed.emit(process.identifier);
    });
}

std::expected<void, std::string> ProcessTable::setLatency(std::string_view bundleIdentifier,
                                                          Seconds latency) {
    return forEach(bundleIdentifier,
                   [&](Process& process) { process.application.latencySeconds = latency.count(); });
}

void ProcessTable::setPolicy(ProcessIdentifier identifier, Policy policy) {
    const auto found = byIdentifier_.find(identifier);
    if (found == byIdentifier_.end() || found->second->application.policy == policy) return;
    found->second->application.policy = policy;
    if (policy == Policy::Background) std::erase(activations_, identifier);
    onFrontChanged.emit();
}

void ProcessTable::activate(ProcessIdentifier identifier) {
    const auto* process = find(identifier);
    if (!process || process->application.policy == Policy::Background || frontmost() == process) return;
    std::erase(activations_, identifier);
    activations_.push_back(identifier);
    onFrontChanged.emit();
}

const Process* ProcessTable::frontmost() const {
    return activations_.empty() ? nullptr : find(activations_.back());
}

const Process* ProcessTable::menuBarOwner() const {
    for (const auto identifier : std::views::reverse(activations_)) {
        const auto* process = find(identifier);
        if (process && process->application.policy == Policy::Regular) return process;
    }
    return nullptr;
}

} // namespace mac_model
