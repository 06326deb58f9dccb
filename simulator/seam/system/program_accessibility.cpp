#include "seam/system/program_facades.h"
#include "vocabulary/vocabulary.h"

namespace mac_model {

namespace {
constexpr Seconds promptTime{0.2};
} // namespace

bool ProgramAccessibility::isTrusted() const { return side_.mac.permission.isTrustedAsTold(); }

void ProgramAccessibility::requestTrust() {
    if (!side_.isOpen() || isTrusted()) return;
    side_.mac.permission.list();
    // A process of the system shows the dialog, over what the program may have opened meanwhile.
    side_.mac.scheduler.callInWorldAfter(promptTime, [side = side_] {
        if (side.isOpen()) side.mac.accessPrompt.show();
    });
}

Subscription ProgramAccessibility::onTrustListChanged(std::function<void()> handler) {
    return side_.connection->relay(side_.mac.permission.onNotice, std::move(handler));
}

AccessibilityElement ProgramAccessibility::application(ProcessIdentifier process) {
    ElementKey key;
    key.process = process;
    return elementFor(key);
}

std::optional<ProcessIdentifier> ProgramAccessibility::processOf(const AccessibilityElement& element) const {
    const auto* reference = dynamic_cast<const ElementReference*>(&element.reference());
    return reference ? std::optional(reference->key().process) : std::nullopt;
}

void ProgramAccessibility::setMessagingTimeout(const AccessibilityElement& element, Seconds timeout) {
    const auto* reference = dynamic_cast<const ElementReference*>(&element.reference());
    if (reference && timeout >= Seconds{0}) reference->setTimeout(timeout);
}

template <class Ask>
auto ProgramAccessibility::message(const Ask& ask) -> decltype(ask()) {
    if (!side_.isOpen()) return std::unexpected(AccessibilityError::CannotComplete);
    auto answer = ask();
    if (!side_.isOpen()) return std::unexpected(AccessibilityError::CannotComplete);
    return answer;
}

AttributeResult ProgramAccessibility::attribute(const AccessibilityElement& element, std::string_view name) {
    return message(
        [&] { return side_.mac.accessibility.attribute(side_.connection->process(), element, name); });
}

std::expected<std::vector<AttributeResult>, AccessibilityError>
ProgramAccessibility::attributes(const AccessibilityElement& element,
                                 std::span<const std::string_view> names) {
    return message(
        [&] { return side_.mac.accessibility.attributes(side_.connection->process(), element, names); });
}

std::expected<std::vector<std::string>, AccessibilityError>
ProgramAccessibility::actionNames(const AccessibilityElement& element) {
    return message([&] { return side_.mac.accessibility.actionNames(side_.connection->process(), element); });
}

std::expected<void, AccessibilityError> ProgramAccessibility::perform(const AccessibilityElement& element,
                                                                      std::string_view action) {
    return message(
        [&] { return side_.mac.accessibility.perform(side_.connection->process(), element, action); });
}

std::expected<void, AccessibilityError>
ProgramAccessibility::setFlag(const AccessibilityElement& element, std::string_view attribute, bool value) {
    return message([&] {
        return side_.mac.accessibility.setFlag(side_.connection->process(), element, attribute, value);
    });
}

} // namespace mac_model
