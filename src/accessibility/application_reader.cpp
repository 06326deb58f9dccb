#include "accessibility/application_reader.h"

#include "platform/accessibility_names.h"

#include <algorithm>
#include <array>
#include <unordered_set>
#include <utility>

namespace tavrin {

namespace {

constexpr std::array itemAttributes{ax::role,        ax::subrole, ax::children, ax::identifier, ax::title,
                                    ax::description, ax::help,    ax::position, ax::size};

struct HashOfElement {
    std::size_t operator()(const AccessibilityElement& element) const { return element.hash(); }
};

} // namespace

ApplicationReader::ApplicationReader(Accessibility& accessibility, Seconds messagingTimeout,
                                     AbandonFlag abandoned)
    : accessibility_(accessibility)
    , timeout_(messagingTimeout)
    , abandoned_(std::move(abandoned)) {}

std::expected<std::vector<MenuBarElement>, ReadFailure>
ApplicationReader::readItems(ProcessIdentifier process, Bars bars) const {
    const auto application = accessibility_.application(process);
    const auto extras = readBar(application, ax::extrasMenuBar);
    if (!extras || *extras || bars == Bars::Extras) return itemsIn(extras, ItemsOfBar::All);
    const bool hasTitles = bars == Bars::ExtrasElseExtrasInMenuBar;
    return itemsIn(readBar(application, ax::menuBar), hasTitles ? ItemsOfBar::MenuExtras : ItemsOfBar::All);
}

ApplicationReader::Items ApplicationReader::itemsIn(const BarResult& bar, ItemsOfBar wanted) const {
    if (!bar) return std::unexpected(bar.error());
    return *bar ? walk(**bar, wanted) : std::vector<MenuBarElement>{};
}

ApplicationReader::BarResult ApplicationReader::readBar(const AccessibilityElement& application,
                                                        std::string_view attribute) const {
    if (abandoned_.isRaised()) return std::unexpected(ReadFailure::Abandoned);
    return readOne<AccessibilityElement>(accessibility_, application, attribute, timeout_);
}

ApplicationReader::Items ApplicationReader::walk(const AccessibilityElement& bar, ItemsOfBar wanted) const {
    std::vector<MenuBarElement> items;
    std::unordered_set<AccessibilityElement, HashOfElement> visited;
    std::vector<Pending> stack{{bar, 0}};
    while (!stack.empty() && visited.size() < visitedMax && items.size() <= itemsBeyondWhichToStop) {
        const auto [element, depth] = std::move(stack.back());
        stack.pop_back();
        if (depth > depthMax || !visited.insert(element).second) continue;
        auto seen = visit(element);
        if (!seen) return std::unexpected(seen.error());
        if (seen->element.role == ax::menuBarItemRole) {
            if (wanted == ItemsOfBar::All || seen->isMenuExtra) items.push_back(std::move(seen->element));
        } else {
            pushChildren(stack, *seen, depth, visited.size());
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

std::expected<ApplicationReader::Visit, ReadFailure>
ApplicationReader::visit(const AccessibilityElement& element) const {
    if (abandoned_.isRaised()) return std::unexpected(ReadFailure::Abandoned);
    const auto attributes = read(accessibility_, element, itemAttributes, timeout_);
    if (!attributes) return std::unexpected(attributes.error());
    return Visit{.element = {.element = element,
                             .role = attributes->as<std::string>(ax::role).value_or(""),
                             .rawIdentifier = attributes->as<std::string>(ax::identifier),
                             .title = attributes->as<std::string>(ax::title),
                             .description = attributes->as<std::string>(ax::description),
                             .help = attributes->as<std::string>(ax::help),
                             .reportedFrame = attributes->frame()},
                 .isMenuExtra = attributes->as<std::string>(ax::subrole) == ax::menuExtraSubrole,
                 .children = attributes->elements(ax::children)};
}

} // namespace tavrin
