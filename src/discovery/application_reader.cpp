#include "discovery/application_reader.h"

#include "discovery/menu_bar_item_scan_policy.h"

#include <algorithm>
#include <array>
#include <unordered_set>
#include <utility>

namespace tavrin {

namespace {

constexpr std::array itemAttributes{ax::role,        ax::children, ax::identifier, ax::title,
                                    ax::description, ax::help,     ax::position,   ax::size};

enum Slot : std::size_t { Role, Children, Identifier, Title, Description, Help, Position, SizeSlot };

struct HashOfElement {
    std::size_t operator()(const AccessibilityElement& element) const { return element.hash(); }
};

template <class T>
std::optional<T> valueAs(const AttributeResult& result) {
    const auto* value = result ? std::get_if<T>(&*result) : nullptr;
    if (!value) return std::nullopt;
    return *value;
}

/// Failures that end the reading of the application; any other error only means that something is not there.
std::optional<ApplicationReader::Failure> endingFailure(AccessibilityError error) {
    if (error == AccessibilityError::CannotComplete) return ApplicationReader::Failure::TimedOut;
    if (error == AccessibilityError::ApiDisabled) return ApplicationReader::Failure::Denied;
    return std::nullopt;
}

std::optional<ApplicationReader::Failure> endingFailure(const std::vector<AttributeResult>& results) {
    for (const auto& result : results) {
        if (result) continue;
        if (const auto failure = endingFailure(result.error())) return failure;
    }
    return std::nullopt;
}

} // namespace

Rect MenuBarElement::frame() const {
    if (!position || !size) return {};
    return Rect::from(*position, *size);
}

ApplicationReader::ApplicationReader(Accessibility& accessibility, Seconds messagingTimeout,
                                     AbandonFlag abandoned)
    : accessibility_(accessibility)
    , timeout_(messagingTimeout)
    , abandoned_(std::move(abandoned)) {}

std::expected<std::vector<MenuBarElement>, ApplicationReader::Failure>
ApplicationReader::readItems(ProcessIdentifier process, std::string_view bundleIdentifier) const {
    const auto bar = findBar(process, bundleIdentifier);
    if (!bar) return std::unexpected(bar.error());
    if (!*bar) return std::vector<MenuBarElement>{};
    return walk(**bar);
}

ApplicationReader::BarResult ApplicationReader::findBar(ProcessIdentifier process,
                                                        std::string_view bundleIdentifier) const {
    const auto application = accessibility_.application(process);
    accessibility_.setMessagingTimeout(application, timeout_);
    const auto extras = readBar(application, ax::extrasMenuBar);
    if (!extras || *extras || !MenuBarItemScanPolicy::isApple(bundleIdentifier)) return extras;
    return readBar(application, ax::menuBar);
}

ApplicationReader::BarResult ApplicationReader::readBar(const AccessibilityElement& application,
                                                        std::string_view attribute) const {
    if (abandoned_.isRaised()) return std::unexpected(Failure::Abandoned);
    const auto result = accessibility_.attribute(application, attribute);
    if (!result) {
        if (const auto failure = endingFailure(result.error())) return std::unexpected(*failure);
    }
    return valueAs<AccessibilityElement>(result);
}

std::expected<std::vector<MenuBarElement>, ApplicationReader::Failure>
ApplicationReader::walk(const AccessibilityElement& bar) const {
    std::vector<MenuBarElement> items;
    std::unordered_set<AccessibilityElement, HashOfElement> visited;
    std::vector<Pending> stack{{bar, 0}};
    while (!stack.empty() && visited.size() < visitedMax && items.size() <= itemsBeyondWhichToStop) {
        const auto [element, depth] = std::move(stack.back());
        stack.pop_back();
        if (depth > depthMax || !visited.insert(element).second) continue;
        auto seen = visit(element);
        if (!seen) return std::unexpected(seen.error());
        if (!*seen) continue;
        if ((*seen)->element.role == ax::menuBarItemRole) {
            items.push_back(std::move((*seen)->element));
        } else {
            pushChildren(stack, **seen, depth, visited.size());
        }
    }
    return items;
}

void ApplicationReader::pushChildren(std::vector<Pending>& stack, const Visit& parent, int depth,
                                     std::size_t visitedCount) {
    const auto count = std::min(parent.children.size(), visitedMax - visitedCount);
    // Backwards, so that the walk meets the children in their order.
    for (auto i = count; i > 0; --i) stack.push_back({parent.children[i - 1], depth + 1});
}

std::expected<std::optional<ApplicationReader::Visit>, ApplicationReader::Failure>
ApplicationReader::visit(const AccessibilityElement& element) const {
    if (abandoned_.isRaised()) return std::unexpected(Failure::Abandoned);
    accessibility_.setMessagingTimeout(element, timeout_);
    const auto read = accessibility_.attributes(element, itemAttributes);
    if (!read) {
        if (const auto failure = endingFailure(read.error())) return std::unexpected(*failure);
        return std::nullopt;
    }
    if (read->size() != itemAttributes.size()) return std::nullopt;
    if (const auto failure = endingFailure(*read)) return std::unexpected(*failure);
    const auto& results = *read;
    return Visit{.element = {.element = element,
                             .role = valueAs<std::string>(results[Role]).value_or(""),
                             .rawIdentifier = valueAs<std::string>(results[Identifier]),
                             .title = valueAs<std::string>(results[Title]),
                             .description = valueAs<std::string>(results[Description]),
                             .help = valueAs<std::string>(results[Help]),
                             .position = valueAs<Point>(results[Position]),
                             .size = valueAs<Size>(results[SizeSlot])},
                 .children = valueAs<std::vector<AccessibilityElement>>(results[Children])
                                 .value_or(std::vector<AccessibilityElement>{})};
}

} // namespace tavrin
