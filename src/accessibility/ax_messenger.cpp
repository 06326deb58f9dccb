#include "accessibility/ax_messenger.h"

namespace tavrin {

Task<std::expected<void, AccessibilityError>>
AxMessenger::perform(AccessibilityElement element, std::string_view action, Seconds timeout) const {
    const auto performed = co_await runOn(
        *queue_, [accessibility = accessibility_, element, action, timeout](const AbandonFlag&) {
            accessibility->setMessagingTimeout(element, timeout);
            return accessibility->perform(element, action);
        });
    co_return performed.value_or(std::unexpected(AccessibilityError::CannotComplete));
}

Task<std::expected<void, AccessibilityError>> AxMessenger::setFlag(AccessibilityElement element,
                                                                   std::string_view attribute, bool value,
                                                                   Seconds timeout) const {
    const auto taken = co_await runOn(
        *queue_, [accessibility = accessibility_, element, attribute, value, timeout](const AbandonFlag&) {
            accessibility->setMessagingTimeout(element, timeout);
            return accessibility->setFlag(element, attribute, value);
        });
    co_return taken.value_or(std::unexpected(AccessibilityError::CannotComplete));
}

} // namespace tavrin
