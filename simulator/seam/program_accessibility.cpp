#include "mac/mac.h"
#include "seam/program_facades.h"

namespace mac_model {

using tavrin::AccessibilityElement;
using tavrin::AccessibilityError;

bool ProgramAccessibility::isTrusted() const { return mac_.permission().isTrustedAsTold(); }

tavrin::Subscription ProgramAccessibility::onTrustListChanged(std::function<void()> handler) {
    return connection_->relay(mac_.permission().onNotice, std::move(handler));
}

AccessibilityElement ProgramAccessibility::application(tavrin::ProcessIdentifier process) {
    ElementKey key;
    key.process = process;
    return elementFor(key);
}

void ProgramAccessibility::setMessagingTimeout(const AccessibilityElement& element, tavrin::Seconds timeout) {
    const auto* reference = dynamic_cast<const ElementReference*>(&element.reference());
    if (reference && timeout >= tavrin::Seconds{0}) reference->setTimeout(timeout);
}

template <class Ask>
auto ProgramAccessibility::message(const Ask& ask) -> decltype(ask()) {
    if (!connection_->isOpen()) return std::unexpected(AccessibilityError::CannotComplete);
    auto answer = ask();
    if (!connection_->isOpen()) return std::unexpected(AccessibilityError::CannotComplete);
    return answer;
}

tavrin::AttributeResult ProgramAccessibility::attribute(const AccessibilityElement& element,
                                                        std::string_view name) {
    return message([&] { return mac_.accessibility().attribute(connection_->process(), element, name); });
}

std::expected<std::vector<tavrin::AttributeResult>, AccessibilityError>
ProgramAccessibility::attributes(const AccessibilityElement& element,
                                 std::span<const std::string_view> names) {
    return message([&] { return mac_.accessibility().attributes(connection_->process(), element, names); });
}

std::expected<std::vector<std::string>, AccessibilityError>
ProgramAccessibility::actionNames(const AccessibilityElement& element) {
    return message([&] { return mac_.accessibility().actionNames(connection_->process(), element); });
}

std::expected<void, AccessibilityError> ProgramAccessibility::perform(const AccessibilityElement& element,
                                                                      std::string_view action) {
    return message([&] { return mac_.accessibility().perform(connection_->process(), element, action); });
}

} // namespace mac_model
