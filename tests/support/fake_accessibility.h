#pragma once

#include "platform/accessibility.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavrin {

/// Trees that no well-behaved application has. Elements are numbers; number N of process P is its
/// application.
class FakeAccessibility final : public Accessibility {
  public:
    struct Node {
        std::map<std::string, AttributeValue, std::less<>> attributes;
        std::optional<AccessibilityError> error; // of any message to it
        std::vector<std::string> actions{};
        std::map<std::string, AccessibilityError, std::less<>> slotErrors{}; // of single attributes
    };

    bool isTrusted() const override { return trusted; }

    void requestTrust() override {}

    Subscription onTrustListChanged(std::function<void()>) override { return {}; }

    AccessibilityElement application(ProcessIdentifier process) override { return element(process); }

    std::optional<ProcessIdentifier> processOf(const AccessibilityElement& element) const override {
        const auto found = owners.find(number(element));
        return found == owners.end() ? std::nullopt : std::optional(found->second);
    }

    void setMessagingTimeout(const AccessibilityElement&, Seconds) override {}

    AttributeResult attribute(const AccessibilityElement& element, std::string_view name) override {
        const auto& node = receive(element);
        if (node.error) return std::unexpected(*node.error);
        return value(node, name);
    }

    std::expected<std::vector<AttributeResult>, AccessibilityError>
    attributes(const AccessibilityElement& element, std::span<const std::string_view> names) override {
        const auto& node = receive(element);
        if (node.error) return std::unexpected(*node.error);
        std::vector<AttributeResult> results;
        for (const auto name : names) results.push_back(value(node, name));
        return results;
    }

    std::expected<std::vector<std::string>, AccessibilityError>
    actionNames(const AccessibilityElement& element) override {
        const auto& node = receive(element);
        if (node.error) return std::unexpected(*node.error);
        return node.actions;
    }

    std::expected<void, AccessibilityError> perform(const AccessibilityElement&, std::string_view) override {
        return {};
    }

    std::expected<void, AccessibilityError> setFlag(const AccessibilityElement&, std::string_view,
                                                    bool) override {
        return {};
    }

    static AccessibilityElement element(int number) {
        return AccessibilityElement(std::make_shared<const Reference>(number));
    }

    static int number(const AccessibilityElement& element) {
        return static_cast<const Reference&>(element.reference()).number;
    }

    void setChildren(int parent, const std::vector<int>& children) {
        std::vector<AccessibilityElement> elements;
        for (const auto child : children) elements.push_back(element(child));
        nodes[parent].attributes["AXChildren"] = std::move(elements);
    }

    void makeItem(int node, double x, const std::string& identifier = "") {
        auto& attributes = nodes[node].attributes;
        attributes["AXRole"] = "AXMenuBarItem";
        attributes["AXPosition"] = Point{x, 7};
        attributes["AXSize"] = Size{24, 24};
        if (!identifier.empty()) attributes["AXIdentifier"] = identifier;
    }

    std::map<int, ProcessIdentifier> owners; // of elements, where the system tells
    std::map<int, Node> nodes;
    int messages = 0;
    std::function<void(int number)> beforeMessage = [](int) {};
    bool trusted = true;

  private:
    struct Reference final : AccessibilityElement::Reference {
        explicit Reference(int n) : number(n) {}

        bool equals(const AccessibilityElement::Reference& other) const override {
            return number == static_cast<const Reference&>(other).number;
        }

        std::size_t hash() const override { return static_cast<std::size_t>(number); }

        int number;
    };

    const Node& receive(const AccessibilityElement& element) {
        ++messages;
        beforeMessage(number(element));
        return nodes[number(element)];
    }

    static AttributeResult value(const Node& node, std::string_view name) {
        if (const auto error = node.slotErrors.find(name); error != node.slotErrors.end())
            return std::unexpected(error->second);
        const auto found = node.attributes.find(name);
        if (found == node.attributes.end()) return std::unexpected(AccessibilityError::NoValue);
        return found->second;
    }
};

} // namespace tavrin
