#include "pins/menus/menu_tree_reader.h"

#include "pins/menus/menu_access.h"
#include "pins/menus/menu_shortcut.h"
#include "platform/accessibility_names.h"

#include <array>
#include <span>
#include <utility>

namespace tavrin {

namespace {

constexpr std::array nodeAttributes{ax::title,
                                    ax::description,
                                    ax::value,
                                    ax::help,
                                    ax::role,
                                    ax::subrole,
                                    ax::identifier,
                                    ax::enabled,
                                    ax::commandCharacter,
                                    ax::commandModifiers,
                                    ax::markCharacter,
                                    ax::children};

/// Asking for the children that nobody wants could make an application build a submenu.
constexpr auto withoutChildren = std::span(nodeAttributes).first(nodeAttributes.size() - 1);

bool isChecked(const std::string& role, const Attributes& attributes) {
    if (role == ax::menuItemRole) return attributes.firstText({ax::markCharacter}).has_value();
    return role == ax::checkBoxRole && attributes.integer(ax::value) == 1;
}

std::optional<std::string> titleOf(const std::string& role, const Attributes& attributes) {
    const auto title = attributes.as<std::string>(ax::title);
    if (role == ax::menuItemRole) return title;
    const auto label = attributes.firstText({ax::title, ax::description, ax::value, ax::help});
    return label ? label : title;
}

PinnedMenuNode nodeFrom(const Attributes& attributes) {
    PinnedMenuNode node;
    node.role = attributes.as<std::string>(ax::role).value_or(std::string{});
    node.subrole = attributes.as<std::string>(ax::subrole);
    node.title = titleOf(node.role, attributes);
    node.identifier = attributes.as<std::string>(ax::identifier);
    node.isEnabled = attributes.isTrue(ax::enabled);
    node.shortcut = menuShortcut(attributes.as<std::string>(ax::commandCharacter),
                                 attributes.integer(ax::commandModifiers));
    node.isChecked = isChecked(node.role, attributes);
    return node;
}

} // namespace

MenuTreeReader::Result<PinnedMenuNode> MenuTreeReader::tree(const AccessibilityElement& root,
                                                            const AbandonFlag& abandoned) {
    budget_ = limits_.maximumNodes;
    return node(root, 0, Reach::Subtree, abandoned);
}

MenuTreeReader::Result<PinnedMenuNode> MenuTreeReader::root(const AccessibilityElement& root,
                                                            const AbandonFlag& abandoned) {
    budget_ = limits_.maximumNodes;
    return node(root, 0, Reach::Alone, abandoned);
}

MenuTreeReader::Result<PinnedMenuNode> MenuTreeReader::node(const AccessibilityElement& element, int depth,
                                                            Reach reach, const AbandonFlag& abandoned) {
    if (abandoned.isRaised()) return std::unexpected(ReadFailure::Abandoned);
    --budget_;
    const auto index = elements_.size();
    elements_.push_back(element);
    depths_.push_back(depth);
    const bool descends = reach == Reach::Subtree && depth < limits_.maximumDepth;
    const auto attributes =
        tavrin::read(accessibility_, element,
                     descends ? std::span<const std::string_view>(nodeAttributes) : withoutChildren,
                     MenuAccess::messagingTimeout);
    if (!attributes) return std::unexpected(attributes.error());
    auto actions = readActions(accessibility_, element, MenuAccess::messagingTimeout);
    if (!actions) return std::unexpected(actions.error());
    auto read = nodeFrom(*attributes);
    read.elementIndex = index;
    read.actions = std::move(*actions);
    if (!descends) return read;
    for (const auto& child : attributes->elements(ax::children)) {
        if (budget_ < 1) break;
        auto below = node(child, depth + 1, reach, abandoned);
        if (!below) return below;
        read.children.push_back(std::move(*below));
    }
    return read;
}

bool MenuTreeReader::isDescendable(const PinnedMenuNode& node) const {
    // The menu of an item is a level of its own.
    const int levels = node.role == ax::menuRole ? 1 : 2;
    return depths_[node.elementIndex] + levels <= limits_.maximumDepth;
}

MenuTreeReader::Result<AccessibilityElements>
MenuTreeReader::childrenOf(const AccessibilityElement& element) const {
    auto children =
        readOne<AccessibilityElements>(accessibility_, element, ax::children, MenuAccess::messagingTimeout);
    if (!children) return std::unexpected(children.error());
    return std::move(*children).value_or(AccessibilityElements{});
}

MenuTreeReader::Result<void> MenuTreeReader::readItems(PinnedMenuNode& parent, const Leads& leads,
                                                       const AbandonFlag& abandoned) {
    budget_ = limits_.maximumNodes - 1; // the parent is one of them
    return readBelow(parent, leads, 0, abandoned);
}

MenuTreeReader::Result<void> MenuTreeReader::readBelow(PinnedMenuNode& parent, const Leads& leads,
                                                       std::size_t level, const AbandonFlag& abandoned) {
    const int depth = depths_[parent.elementIndex];
    parent.children.clear();
    if (depth >= limits_.maximumDepth) return {};
    const auto children = childrenOf(elementOf(parent));
    if (!children) return std::unexpected(children.error());
    for (const auto& child : *children) {
        if (budget_ < 1) break;
        auto item = node(child, depth + 1, Reach::Alone, abandoned);
        if (!item) return std::unexpected(item.error());
        const bool isMenu = item->role == ax::menuRole;
        if (isMenu || leads(*item, level)) {
            if (auto below = readBelow(*item, leads, isMenu ? level : level + 1, abandoned); !below)
                return below;
        }
        parent.children.push_back(std::move(*item));
    }
    return {};
}

MenuTreeReader::Result<bool> MenuTreeReader::hasItems(const PinnedMenuNode& node) const {
    const auto children = childrenOf(elementOf(node));
    if (!children) return std::unexpected(children.error());
    // The one child of an item is its menu.
    if (children->size() != 1 || node.role == ax::menuRole) return !children->empty();
    const auto below = childrenOf(children->front());
    if (!below) return std::unexpected(below.error());
    return !below->empty();
}

} // namespace tavrin
