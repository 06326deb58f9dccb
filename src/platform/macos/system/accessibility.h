#pragma once

#include "platform/accessibility.h"

namespace tavrin::macos {

class MacAccessibility final : public Accessibility {
  public:
    explicit MacAccessibility(Scheduler& scheduler) : scheduler_(scheduler) {}

    bool isTrusted() const override;
    void requestTrust() override;
    Subscription onTrustListChanged(std::function<void()> handler) override;
    AccessibilityElement application(ProcessIdentifier process) override;
    std::optional<ProcessIdentifier> processOf(const AccessibilityElement& element) const override;
    void setMessagingTimeout(const AccessibilityElement& element, Seconds timeout) override;
    AttributeResult attribute(const AccessibilityElement& element, std::string_view name) override;
    std::expected<std::vector<AttributeResult>, AccessibilityError>
    attributes(const AccessibilityElement& element, std::span<const std::string_view> names) override;
    std::expected<std::vector<std::string>, AccessibilityError>
    actionNames(const AccessibilityElement& element) override;
    std::expected<void, AccessibilityError> perform(const AccessibilityElement& element,
                                                    std::string_view action) override;
    std::expected<void, AccessibilityError> setFlag(const AccessibilityElement& element,
                                                    std::string_view attribute, bool value) override;

  private:
    Scheduler& scheduler_;
};

} // namespace tavrin::macos
