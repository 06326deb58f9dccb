#include "pins/running/menu_path_walk.h"

#include "concurrency/wait_until.h"
#include "platform/accessibility_names.h"

#include <algorithm>

namespace tavrin {

namespace {

PinnedRunFailure itemChanged(std::string step, const PinnedMenuNode& parent) {
    PinnedRunFailure::ItemChanged changed{std::move(step), {}};
    for (const auto* item : parent.labelledItems()) changed.available.push_back(*item->title);
    return {std::move(changed)};
}

MenuTreeReader::Result<PinnedMenuNode> withItems(MenuTreeReader& reader, PinnedMenuNode parent,
                                                 const MenuTreeReader::Leads& leads,
                                                 const AbandonFlag& abandoned) {
    if (auto items = reader.readItems(parent, leads, abandoned); !items)
        return std::unexpected(items.error());
    return parent;
}

/// Whether the item has a menu that shows nothing yet. An item without a menu is a command, which a press
/// would run.
bool isToBeOpened(const PinnedMenuNode& parent) {
    const bool hasMenu = parent.role == ax::menuBarItemRole ||
                         std::ranges::any_of(parent.children, [](const PinnedMenuNode& child) {
                             return child.role == ax::menuRole;
                         });
    return hasMenu && parent.items().empty();
}

} // namespace

PinnedRunFailure failureOf(ReadFailure failure, const std::string& application) {
    if (failure == ReadFailure::Denied) return {PinnedRunFailure::AccessibilityDenied{}};
    return {PinnedRunFailure::TimedOut{application}};
}

Task<PinnedRunResult> MenuPathWalk::press(AccessibilityElement root) {
    auto current = co_await readRoot(std::move(root));
    if (!current) co_return std::unexpected(current.error());
    // A stored path may be empty, though nobody makes such a pin.
    if (pin_.path.empty()) co_return std::unexpected(itemChanged(pin_.name, *current));
    std::vector<PinnedMenuNode> trail;
    for (std::size_t i = 0; i < pin_.path.size(); ++i) {
        auto child = childFor(pin_.path[i], *current);
        if (!child) co_return std::unexpected(child.error());
        trail.push_back(*child);
        if (i + 1 == pin_.path.size()) break;
        current = co_await showItems(std::move(*child), i + 1);
        if (!current) co_return std::unexpected(current.error());
    }
    co_return co_await pressLast(std::move(trail));
}

MenuPathWalk::Level MenuPathWalk::levelFrom(MenuTreeReader::Result<PinnedMenuNode> read) const {
    if (!read) return std::unexpected(failureOf(read.error(), pin_.applicationName));
    return std::move(*read);
}

Task<MenuPathWalk::Level> MenuPathWalk::readRoot(AccessibilityElement root) {
    co_return levelFrom(
        co_await access_.messenger.ask([reader = reader_, leads = leadsFrom(0), root = std::move(root)](
                                           Accessibility&, const AbandonFlag& abandoned) {
            auto node = reader->root(root, abandoned);
            return node ? withItems(*reader, std::move(*node), leads, abandoned) : node;
        }));
}

/// What stands below an item that the steps before this one have led to.
Task<MenuPathWalk::Level> MenuPathWalk::readBranch(PinnedMenuNode parent, std::size_t step) {
    co_return levelFrom(co_await access_.messenger.ask(
        [reader = reader_, leads = leadsFrom(step),
         parent = std::move(parent)](Accessibility&, const AbandonFlag& abandoned) {
            return withItems(*reader, parent, leads, abandoned);
        }));
}

/// Items that could be those of the path, but for its last, which has nothing below.
MenuTreeReader::Leads MenuPathWalk::leadsFrom(std::size_t step) const {
    return [path = pin_.path, step, &text = std::as_const(access_.platform.text)](const PinnedMenuNode& item,
                                                                                  std::size_t level) {
        return step + level + 1 < path.size() && item.couldBe(path[step + level], text);
    };
}

Task<MenuPathWalk::Level> MenuPathWalk::showItems(PinnedMenuNode parent, std::size_t step) {
    if (!isToBeOpened(parent) || !reader_->isDescendable(parent)) co_return parent;
    co_return co_await openSubmenu(std::move(parent), step);
}

/// Some applications fill a submenu no sooner than it opens.
Task<MenuPathWalk::Level> MenuPathWalk::openSubmenu(PinnedMenuNode parent, std::size_t step) {
    const auto element = reader_->elementOf(parent);
    if (!opened_) opened_ = element;
    // A menu that has opened keeps some applications from answering.
    (void)co_await perform(element);
    const auto hasItems = co_await waitForItems(parent);
    if (!hasItems) co_return std::unexpected(failureOf(hasItems.error(), pin_.applicationName));
    if (*hasItems) co_return co_await readBranch(std::move(parent), step);
    co_return parent;
}

/// A failure at once when the application doesn't answer.
Task<MenuTreeReader::Result<bool>> MenuPathWalk::waitForItems(PinnedMenuNode parent) {
    (void)co_await waitUntil(
        access_.platform.scheduler, [this, parent] { return looksSettled(parent); }, MenuAccess::pollInterval,
        MenuAccess::submenuOpeningTime);
    co_return hasItems_;
}

Task<bool> MenuPathWalk::looksSettled(PinnedMenuNode parent) {
    hasItems_ = co_await access_.messenger.ask(
        [reader = reader_, parent = std::move(parent)](Accessibility&, const AbandonFlag&) {
            return reader->hasItems(parent);
        });
    co_return hasItems_.value_or(true);
}

MenuPathWalk::Level MenuPathWalk::childFor(const PinnedMenuStep& step, const PinnedMenuNode& parent) const {
    const auto match = PinnedMenuNode::match(step, parent.items(), access_.platform.text);
    if (const auto* const* one = std::get_if<const PinnedMenuNode*>(&match)) return **one;
    if (const auto* many = std::get_if<PinnedMenuNode::Many>(&match))
        return std::unexpected(PinnedRunFailure{PinnedRunFailure::Ambiguous{step.title, many->count}});
    return std::unexpected(itemChanged(step.title, parent));
}

Task<PinnedRunResult> MenuPathWalk::pressLast(std::vector<PinnedMenuNode> trail) {
    const auto& last = trail.back();
    const auto title = last.title.value_or(pin_.path.back().title);
    if (const auto reason = PinnedActionPolicy::exclusionForTrail(trail))
        co_return std::unexpected(PinnedRunFailure{PinnedRunFailure::Excluded{title, *reason}});
    hasPressed_ = true;
    const auto pressed = co_await perform(reader_->elementOf(last));
    if (pressed) co_return PinnedRunResult{};
    if (const auto ending = endingFailure(pressed.error()))
        co_return std::unexpected(failureOf(*ending, pin_.applicationName));
    hasPressed_ = false;
    co_return std::unexpected(PinnedRunFailure{PinnedRunFailure::PressFailed{title}});
}

Task<std::expected<void, AccessibilityError>> MenuPathWalk::perform(AccessibilityElement element) {
    return access_.messenger.perform(std::move(element), ax::pressAction, MenuAccess::messagingTimeout);
}

} // namespace tavrin
