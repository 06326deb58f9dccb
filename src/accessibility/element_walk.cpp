#include "accessibility/element_walk.h"

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

std::expected<void, ReadFailure> ElementWalk::run(std::span<const AccessibilityElement> roots,
                                                  Visitor& visitor) const {
    std::unordered_set<AccessibilityElement, HashOfElement> visited;
    Stack stack;
    for (std::size_t i = std::min(roots.size(), visitedMax); i > 0; --i)
        stack.push_back({roots[i - 1], 0, i - 1});
    while (!stack.empty() && visited.size() < visitedMax) {
        const auto pending = std::move(stack.back());
        stack.pop_back();
        if (pending.depth > depthMax || !visited.insert(pending.element).second) continue;
        if (visitor.isPassed(pending.element, pending.root)) continue;
        auto seen = look(pending);
        if (!seen && !visitor.outlives(seen.error(), pending.element, pending.root))
            return std::unexpected(seen.error());
        if (!seen) continue;
        const auto children = seen->children;
        const auto step = visitor.see(std::move(*seen));
        if (step == Step::Stop) return {};
        if (step == Step::Into) push(children, pending, visited.size(), stack);
    }
    return {};
}

void ElementWalk::push(const AccessibilityElements& children, const Pending& parent, std::size_t visitedCount,
                       Stack& stack) {
    const auto count = std::min(children.size(), visitedMax - visitedCount);
    // Backwards, so that the walk meets the children in their order.
    for (auto i = count; i > 0; --i) stack.push_back({children[i - 1], parent.depth + 1, parent.root});
}

std::expected<ElementWalk::Seen, ReadFailure> ElementWalk::look(const Pending& pending) const {
    if (abandoned_.isRaised()) return std::unexpected(ReadFailure::Abandoned);
    const auto attributes = read(accessibility_, pending.element, itemAttributes, timeout_);
    if (!attributes) return std::unexpected(attributes.error());
    return Seen{.element = {.element = pending.element,
                            .role = attributes->as<std::string>(ax::role).value_or(""),
                            .rawIdentifier = attributes->as<std::string>(ax::identifier),
                            .title = attributes->as<std::string>(ax::title),
                            .description = attributes->as<std::string>(ax::description),
                            .help = attributes->as<std::string>(ax::help),
                            .reportedFrame = attributes->frame()},
                .isMenuExtra = attributes->as<std::string>(ax::subrole) == ax::menuExtraSubrole,
                .children = attributes->elements(ax::children),
                .root = pending.root};
}

} // namespace tavrin
