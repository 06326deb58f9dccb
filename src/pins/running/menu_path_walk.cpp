#include "pins/running/menu_path_walk.h"

#include "concurrency/waits.h"
#include "platform/accessibility.h"

#include <algorithm>

namespace tavrin {

namespace {

PinnedRunFailure itemChanged(std::string step, const PinnedMenuNode& parent) {
    PinnedRunFailure::ItemChanged changed{std::move(step), {}};
    for (const auto* item : parent.labelledItems()) changed.available.push_back(*item->title);
    return {std::move(changed)};
}

/// Whether it has a menu that shows nothing yet. An item without a menu is a command, which a press would
/// run.
bool isToBeOpened(const PinnedMenuNode& parent) {
    const bool hasMenu = parent.role == ax::menuBarItemRole ||
                         std::ranges::any_of(parent.children, [](const PinnedMenuNode& child) {
                             return child.role == MenuAX::menuRole;
                         });
    return hasMenu && parent.items().empty();
}

} // namespace

PinnedRunFailure failureOf(MenuReadFailure failure, const std::string& application) {
    if (failure == MenuReadFailure::Denied) return {PinnedRunFailure::AccessibilityDenied{}};
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
        current = co_await readItems(std::move(*child));
        if (!current) co_return std::unexpected(current.error());
    }
    co_return co_await pressLast(std::move(trail));
}

MenuPathWalk::Level
MenuPathWalk::levelFrom(std::optional<MenuTreeReader::Result<PinnedMenuNode>> read) const {
    if (!read) return std::unexpected(failureOf(MenuReadFailure::Abandoned, pin_.applicationName));
    if (!*read) return std::unexpected(failureOf(read->error(), pin_.applicationName));
    return std::move(**read);
}

Task<MenuPathWalk::Level> MenuPathWalk::readRoot(AccessibilityElement root) {
    auto read = co_await runOn(
        access_.queue, [reader = reader_, root = std::move(root)](const AbandonFlag& abandoned) {
            auto node = reader->root(root, abandoned);
            if (!node) return node;
            if (auto items = reader->readItems(*node, abandoned); !items)
                return MenuTreeReader::Result<PinnedMenuNode>(std::unexpected(items.error()));
            return node;
        });
    co_return levelFrom(std::move(read));
}

Task<MenuPathWalk::Level> MenuPathWalk::readItems(PinnedMenuNode parent) {
    auto read =
        co_await runOn(access_.queue, [reader = reader_, parent](const AbandonFlag& abandoned) mutable {
            auto items = reader->readItems(parent, abandoned);
            return items ? MenuTreeReader::Result<PinnedMenuNode>(std::move(parent))
                         : std::unexpected(items.error());
        });
    auto level = levelFrom(std::move(read));
    if (!level || !isToBeOpened(*level) || !reader_->isDescendable(parent)) co_return level;
    co_return co_await openSubmenu(std::move(parent));
}

/// Some applications fill a submenu no sooner than it opens.
Task<MenuPathWalk::Level> MenuPathWalk::openSubmenu(PinnedMenuNode parent) {
    const auto element = reader_->elementOf(parent);
    if (!opened_) opened_ = element;
    // A menu that has opened keeps some applications from answering.
    (void)co_await perform(element);
    if (!co_await waitForItems(parent)) {
        parent.children.clear();
        co_return parent;
    }
    auto read =
        co_await runOn(access_.queue, [reader = reader_, parent](const AbandonFlag& abandoned) mutable {
            auto items = reader->readItems(parent, abandoned);
            return items ? MenuTreeReader::Result<PinnedMenuNode>(std::move(parent))
                         : std::unexpected(items.error());
        });
    co_return levelFrom(std::move(read));
}

Task<bool> MenuPathWalk::waitForItems(PinnedMenuNode parent) {
    const auto& scheduler = access_.platform.scheduler;
    const auto until = scheduler.now() + MenuAccess::submenuOpeningTime;
    do {
        const auto has = co_await runOn(access_.queue, [reader = reader_, parent](const AbandonFlag&) {
            return reader->hasItems(parent);
        });
        if (!has || !*has) co_return false;
        if (**has) co_return true;
        if (co_await sleepFor(MenuAccess::pollInterval) == Wake::CutShort) co_return false;
    } while (scheduler.now() < until);
    co_return false;
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
    if (const auto ending = MenuAX::endingFailure(pressed.error()))
        co_return std::unexpected(failureOf(*ending, pin_.applicationName));
    hasPressed_ = false;
    co_return std::unexpected(PinnedRunFailure{PinnedRunFailure::PressFailed{title}});
}

Task<std::expected<void, AccessibilityError>> MenuPathWalk::perform(AccessibilityElement element) {
    const auto performed = co_await runOn(
        access_.queue, [&accessibility = access_.platform.accessibility, element](const AbandonFlag&) {
            return accessibility.perform(element, MenuAX::pressAction);
        });
    co_return performed.value_or(std::unexpected(AccessibilityError::CannotComplete));
}

} // namespace tavrin
