#include "pins/menus/menu_tree_reader.h"

#include <array>
#include <span>
#include <utility>

namespace tavrin {

namespace {

// What stands for a title comes first, in the order of preference.
constexpr std::array nodeAttributes{ax::title,
                                    ax::description,
                                    MenuAX::value,
                                    ax::help,
                                    ax::role,
                                    MenuAX::subrole,
                                    ax::identifier,
                                    MenuAX::enabled,
                                    MenuAX::commandCharacter,
                                    MenuAX::commandModifiers,
                                    MenuAX::markCharacter,
                                    ax::children};

enum Slot : std::size_t {
    Title,
    Description,
    Value,
    Help,
    Role,
    Subrole,
    Identifier,
    Enabled,
    CommandCharacter,
    CommandModifiers,
    MarkCharacter,
    Children
};

constexpr std::size_t labelSlots = 4;

bool isChecked(const std::string& role, const MenuAX::Results& results) {
    if (role == MenuAX::menuItemRole)
        return !MenuAX::string(results[MarkCharacter]).value_or(std::string{}).empty();
    return role == MenuAX::checkBoxRole && MenuAX::integer(results[Value]) == 1;
}

std::optional<std::string> titleOf(const std::string& role, const MenuAX::Results& results) {
    const auto title = MenuAX::string(results[Title]);
    if (role == MenuAX::menuItemRole) return title;
    const auto label = MenuAX::label(std::span(results).first(labelSlots));
    return label ? label : title;
}

PinnedMenuNode nodeFrom(const MenuAX::Results& results) {
    PinnedMenuNode node;
    node.role = MenuAX::string(results[Role]).value_or(std::string{});
    node.subrole = MenuAX::string(results[Subrole]);
    node.title = titleOf(node.role, results);
    node.identifier = MenuAX::string(results[Identifier]);
    node.isEnabled = MenuAX::boolean(results[Enabled]);
    node.shortcut = MenuAX::shortcut(MenuAX::string(results[CommandCharacter]),
                                     MenuAX::integer(results[CommandModifiers]));
    node.isChecked = isChecked(node.role, results);
    return node;
}

} // namespace

MenuTreeReader::Result<PinnedMenuNode> MenuTreeReader::tree(const AccessibilityElement& root,
                                                            const AbandonFlag& abandoned) {
    return node(root, 0, Reach::Subtree, abandoned);
}

MenuTreeReader::Result<PinnedMenuNode> MenuTreeReader::root(const AccessibilityElement& root,
                                                            const AbandonFlag& abandoned) {
    return node(root, 0, Reach::Alone, abandoned);
}

MenuTreeReader::Result<PinnedMenuNode> MenuTreeReader::node(const AccessibilityElement& element, int depth,
                                                            Reach reach, const AbandonFlag& abandoned) {
    if (abandoned.isRaised()) return std::unexpected(MenuReadFailure::Abandoned);
    --budget_;
    accessibility_.setMessagingTimeout(element, MenuAX::messagingTimeout);
    const auto index = elements_.size();
    elements_.push_back(element);
    depths_.push_back(depth);
    const bool descends = reach == Reach::Subtree && depth < limits_.maximumDepth;
    // Asking for the children that nobody wants could make an application build a submenu.
    const auto results = MenuAX::read(accessibility_, element,
                                      std::span(nodeAttributes).first(descends ? Children + 1 : Children));
    if (!results) return std::unexpected(results.error());
    auto actions = MenuAX::actions(accessibility_, element);
    if (!actions) return std::unexpected(actions.error());
    auto read = nodeFrom(*results);
    read.elementIndex = index;
    read.actions = std::move(*actions);
    if (!descends) return read;
    for (const auto& child : MenuAX::children((*results)[Children])) {
        if (budget_ < 1) break;
        auto below = node(child, depth + 1, reach, abandoned);
        if (!below) return below;
        read.children.push_back(std::move(*below));
    }
    return read;
}

bool MenuTreeReader::isDescendable(const PinnedMenuNode& node) const {
    // The menu of an item is a level of its own.
    const int levels = node.role == MenuAX::menuRole ? 1 : 2;
    return depths_[node.elementIndex] + levels <= limits_.maximumDepth;
}

MenuTreeReader::Result<MenuAX::Elements>
MenuTreeReader::childrenOf(const AccessibilityElement& element) const {
    const auto results = MenuAX::read(accessibility_, element, std::array{ax::children});
    if (!results) return std::unexpected(results.error());
    return MenuAX::children(results->front());
}

MenuTreeReader::Result<void> MenuTreeReader::readItems(PinnedMenuNode& parent, const AbandonFlag& abandoned) {
    const int depth = depths_[parent.elementIndex];
    parent.children.clear();
    if (depth >= limits_.maximumDepth) return {};
    const auto children = childrenOf(elementOf(parent));
    if (!children) return std::unexpected(children.error());
    for (const auto& child : *children) {
        if (budget_ < 1) break;
        auto item = node(child, depth + 1, Reach::Alone, abandoned);
        if (!item) return std::unexpected(item.error());
        if (item->role == MenuAX::menuRole) {
            if (auto below = readItems(*item, abandoned); !below) return below;
        }
        parent.children.push_back(std::move(*item));
    }
    return {};
}

MenuTreeReader::Result<bool> MenuTreeReader::hasItems(const PinnedMenuNode& node) const {
    const auto children = childrenOf(elementOf(node));
    if (!children) return std::unexpected(children.error());
    // The one child of an item is its menu.
    if (children->size() != 1 || node.role == MenuAX::menuRole) return !children->empty();
    accessibility_.setMessagingTimeout(children->front(), MenuAX::messagingTimeout);
    const auto below = childrenOf(children->front());
    if (!below) return std::unexpected(below.error());
    return !below->empty();
}

} // namespace tavrin
