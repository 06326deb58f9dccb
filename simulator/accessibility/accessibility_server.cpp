#include "accessibility/accessibility_server.h"

#include <algorithm>

namespace mac_model {

using tavrin::AccessibilityElement;
using tavrin::AttributeResult;
using tavrin::ProcessIdentifier;
using tavrin::Seconds;

namespace {

/// How often a message that waits for a hung process looks whether the process has come back.
constexpr Seconds wakingInterval{0.05};

const ElementReference* referenceOf(const AccessibilityElement& element) {
    return dynamic_cast<const ElementReference*>(&element.reference());
}

} // namespace

AccessibilityServer::AccessibilityServer(tavrin::VirtualScheduler& scheduler, const ProcessTable& processes,
                                         const StatusArea& statusArea, const ScreensModel& screens,
                                         const Permission& permission, const Uncertainties& uncertainties,
                                         const Faults& faults, const std::optional<OpenMenu>& openMenu,
                                         std::uint64_t seed)
    : scheduler_(scheduler)
    , world_(scheduler)
    , processes_(processes)
    , permission_(permission)
    , uncertainties_(uncertainties)
    , menus_(scheduler, processes, faults, openMenu)
    , tree_(processes, statusArea, screens, uncertainties, menus_)
    , varies_(seed != 0)
    , random_(seed) {}

Seconds AccessibilityServer::latencyOf(const Process& process) {
    constexpr double whole = 4294967296.0;
    const double chance = static_cast<double>(random_() >> 32U) / whole;
    const double factor = varies_ ? 0.5 + 1.5 * chance : 1;
    return Seconds{process.application.latencySeconds * factor};
}

std::expected<void, AccessibilityServer::Error> AccessibilityServer::send(ProcessIdentifier caller,
                                                                          const ElementReference& reference) {
    const auto receiver = reference.key().process;
    const auto* process = processes_.find(receiver);
    if (receiver != caller && !permission_.isTrusted()) {
        const bool waits =
            permission_.wasRevoked() && uncertainties_.revokedAccess == RevokedAccess::TimesOut;
        if (!waits) return std::unexpected(Error::ApiDisabled);
        scheduler_.spend(timeoutOf(reference));
        return std::unexpected(Error::CannotComplete);
    }
    if (!process) return std::unexpected(Error::InvalidElement);
    const auto& application = process->application;
    ++messages_[application.bundleIdentifier.empty() ? application.name : application.bundleIdentifier];
    return deliver(reference);
}

std::expected<void, AccessibilityServer::Error>
AccessibilityServer::deliver(const ElementReference& reference) {
    const auto receiver = reference.key().process;
    const auto timeout = timeoutOf(reference);
    auto left = timeout;
    while (processes_.find(receiver) && !processes_.find(receiver)->application.responding &&
           left > Seconds{0}) {
        const auto step = std::min(left, wakingInterval);
        scheduler_.spend(step);
        left -= step;
    }
    if (!processes_.find(receiver) || left <= Seconds{0}) return std::unexpected(Error::CannotComplete);
    const auto latency = latencyOf(*processes_.find(receiver));
    scheduler_.spend(std::min(latency, left));
    const auto* process = processes_.find(receiver);
    if (!process || latency > left) return std::unexpected(Error::CannotComplete);
    if (process->application.accessibility == AccessibilitySupport::None)
        return std::unexpected(Error::NotImplemented);
    if (!tree_.exists(reference.key())) return std::unexpected(Error::InvalidElement);
    return {};
}

Seconds AccessibilityServer::timeoutOf(const ElementReference& reference) {
    return reference.timeout() > Seconds{0} ? reference.timeout() : timeoutAtFirst;
}

AttributeResult AccessibilityServer::attribute(ProcessIdentifier caller, const AccessibilityElement& element,
                                               std::string_view name) {
    const auto* reference = referenceOf(element);
    if (!reference) return std::unexpected(Error::IllegalArgument);
    if (auto sent = send(caller, *reference); !sent) return std::unexpected(sent.error());
    return tree_.attribute(reference->key(), name);
}

std::expected<std::vector<AttributeResult>, AccessibilityServer::Error>
AccessibilityServer::attributes(ProcessIdentifier caller, const AccessibilityElement& element,
                                std::span<const std::string_view> names) {
    const auto* reference = referenceOf(element);
    if (!reference) return std::unexpected(Error::IllegalArgument);
    if (auto sent = send(caller, *reference); !sent) return std::unexpected(sent.error());
    std::vector<AttributeResult> results;
    for (const auto name : names) results.push_back(tree_.attribute(reference->key(), name));
    return results;
}

std::expected<std::vector<std::string>, AccessibilityServer::Error>
AccessibilityServer::actionNames(ProcessIdentifier caller, const AccessibilityElement& element) {
    const auto* reference = referenceOf(element);
    if (!reference) return std::unexpected(Error::IllegalArgument);
    if (auto sent = send(caller, *reference); !sent) return std::unexpected(sent.error());
    return tree_.actionNames(reference->key());
}

std::expected<void, AccessibilityServer::Error>
AccessibilityServer::perform(ProcessIdentifier caller, const AccessibilityElement& element,
                             std::string_view action) {
    const auto* reference = referenceOf(element);
    if (!reference) return std::unexpected(Error::IllegalArgument);
    if (auto sent = send(caller, *reference); !sent) return sent;
    const auto names = tree_.actionNames(reference->key());
    if (std::ranges::find(names, action) == names.end()) return std::unexpected(Error::ActionUnsupported);
    // macOS answers a press on something disabled like any other, and does nothing.
    if (!tree_.isEnabled(reference->key())) return {};
    return performOn(*reference, action);
}

std::expected<void, AccessibilityServer::Error>
AccessibilityServer::performOn(const ElementReference& reference, std::string_view action) {
    using Kind = ElementKey::Kind;
    const auto& key = reference.key();
    const auto faults = menus_.faultsOf(key.process);
    const bool isItem = key.kind == Kind::StatusItem;
    const bool isEntry = key.kind == Kind::StatusEntry || key.kind == Kind::TitleEntry;
    if (isItem && faults.ignoresPress) return {};
    if (isEntry && faults.refusesChoices) return std::unexpected(Error::Failure);
    actAfter(isItem ? faults.opensAfter : Seconds{0}, key, action);
    if (!isItem || !faults.blocksInPress) return {};
    scheduler_.spend(timeoutOf(reference));
    return std::unexpected(Error::CannotComplete);
}

void AccessibilityServer::actAfter(Seconds delay, const ElementKey& key, std::string_view action) {
    world_.after(delay, [this, key, name = std::string(action)] {
        if (tree_.exists(key)) act(key, name);
    });
}

void AccessibilityServer::act(const ElementKey& key, const std::string& action) const {
    using Kind = ElementKey::Kind;
    const auto call = [](const auto& hook, const auto&... arguments) {
        if (hook) hook(arguments...);
    };
    switch (key.kind) {
    case Kind::StatusItem:
        return call(actions.actOnItem, StatusItemIdentifier{key.owner}, action);
    case Kind::Title:
        if (action == "AXCancel") return call(actions.cancelMenu, key);
        return call(actions.pressTitle, key.process, key.owner);
    case Kind::StatusEntry:
    case Kind::TitleEntry:
        if (action == "AXCancel") return call(actions.cancelMenu, key);
        return call(actions.pressEntry, key);
    default:
        return call(actions.cancelMenu, key);
    }
}

} // namespace mac_model
