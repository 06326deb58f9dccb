#include "menu_bar/flash_count.h"

namespace mac_model {

FlashCount::FlashCount(StatusItemTable& items, VisibilityLists& lists) : items_(items), lists_(lists) {
    subscriptions_.push_back(
        lists.onActivating.subscribe([this](VisibilityLists::Identifier list) { begin(list); }));
    subscriptions_.push_back(items.onChanged.subscribe([this] { look(); }));
}

void FlashCount::begin(VisibilityLists::Identifier list) {
    auto& watched = watched_[list];
    for (const auto* item : items_.items())
        if (item->why == HiddenReason::Restricted) watched.hidden.insert(item->identifier);
}

void FlashCount::look() {
    for (auto& [list, watched] : watched_)
        if (lists_.find(list)) look(watched, lists_.isPending(list));
    std::erase_if(watched_, [this](const auto& entry) { return !lists_.find(entry.first); });
}

void FlashCount::look(Watched& watched, bool isPending) {
    for (const auto identifier : watched.hidden) {
        const auto* item = items_.find(identifier);
        if (item && item->isDrawn && isPending) watched.drawn.insert(identifier);
        const bool isHidden = item && item->why == HiddenReason::Restricted;
        if (!isPending && isHidden) count_ += watched.drawn.erase(identifier);
    }
}

} // namespace mac_model
