#include "accessibility/server.h"

#include <algorithm>

namespace mac_model {

std::expected<const ElementReference*, AccessibilityServer::Error>
AccessibilityServer::send(ProcessIdentifier caller, const AccessibilityElement& element) {
    const auto* reference = dynamic_cast<const ElementReference*>(&element.reference());
    if (!reference) return std::unexpected(Error::IllegalArgument);
    if (auto sent = delivery_.send(caller, *reference); !sent) return std::unexpected(sent.error());
    if (!tree_.exists(reference->key())) return std::unexpected(Error::InvalidElement);
    return reference;
}

AttributeResult AccessibilityServer::attribute(ProcessIdentifier caller, const AccessibilityElement& element,
                                               std::string_view name) {
    const auto reached = send(caller, element);
    if (!reached) return std::unexpected(reached.error());
    return tree_.attribute((*reached)->key(), name);
}

std::expected<std::vector<AttributeResult>, AccessibilityServer::Error>
AccessibilityServer::attributes(ProcessIdentifier caller, const AccessibilityElement& element,
                                std::span<const std::string_view> names) {
    const auto reached = send(caller, element);
    if (!reached) return std::unexpected(reached.error());
    std::vector<AttributeResult> results;
    for (const auto name : names) results.push_back(tree_.attribute((*reached)->key(), name));
    return results;
}

std::expected<std::vector<std::string>, AccessibilityServer::Error>
AccessibilityServer::actionNames(ProcessIdentifier caller, const AccessibilityElement& element) {
    const auto reached = send(caller, element);
    if (!reached) return std::unexpected(reached.error());
    return tree_.actionNames((*reached)->key());
}

std::expected<void, AccessibilityServer::Error>
AccessibilityServer::perform(ProcessIdentifier caller, const AccessibilityElement& element,
                             std::string_view action) {
    const auto reached = send(caller, element);
    if (!reached) return std::unexpected(reached.error());
    const auto& key = (*reached)->key();
    const auto names = tree_.actionNames(key);
    if (std::ranges::find(names, action) == names.end()) return std::unexpected(Error::ActionUnsupported);
    // macOS answers a press on something disabled like any other, and does nothing.
    if (!tree_.isEnabled(key)) return {};
    return performOn(**reached, action);
}

std::expected<void, AccessibilityServer::Error>
AccessibilityServer::performOn(const ElementReference& reference, std::string_view action) {
    using Kind = ElementKey::Kind;
    const auto& key = reference.key();
    const auto faults = menus_.faultsOf(key.process);
    const bool isItem = key.kind == Kind::StatusItem || key.kind == Kind::HostedItem;
    const bool isEntry = key.kind == Kind::StatusEntry || key.kind == Kind::TitleEntry;
    if (isItem && faults.ignoresPress) return {};
    if (isEntry && faults.refusesChoices) return std::unexpected(Error::Failure);
    actAfter(isItem ? faults.opensAfter : Seconds{0}, key, action);
    if (!isItem || !faults.blocksInPress) return {};
    return std::unexpected(delivery_.runIntoTimeout(reference));
}

void AccessibilityServer::actAfter(Seconds delay, const ElementKey& key, std::string_view action) {
    world_.after(delay, [this, key, name = std::string(action)] {
        if (tree_.exists(key)) actions_.perform(key, name);
    });
}

std::expected<void, AccessibilityServer::Error>
AccessibilityServer::setFlag(ProcessIdentifier caller, const AccessibilityElement& element,
                             std::string_view attribute, bool value) {
    const auto reached = send(caller, element);
    if (!reached) return std::unexpected(reached.error());
    const auto key = (*reached)->key();
    if (key.kind != ElementKey::Kind::Application || attribute != "AXFrontmost")
        return std::unexpected(Error::AttributeUnsupported);
    if (value)
        world_.after(faults_.activationTime, [this, key] {
            if (tree_.exists(key)) actions_.bringToFront(key.process);
        });
    return {};
}

} // namespace mac_model
