#pragma once

#include "accessibility/element.h"
#include "concurrency/scheduler.h"
#include "menu_bar/status_layout.h"
#include "vocabulary/vocabulary.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace mac_model {

/// The one menu of another process's status item or menu bar title that is open, and since when.
struct OpenMenu {
    ProcessIdentifier owner = 0;
    StatusItemIdentifier item = StatusItemIdentifier::None;
    std::optional<std::size_t> title; // in the menu bar, when it is no status item's
    std::vector<std::uint32_t> path;  // of the entries whose submenus are open, too
    std::vector<Seconds> openedAt;    // each menu, the outermost first

    /// Whether the element belongs to the item or title that this menu opened from.
    bool isOf(const ElementKey& key) const {
        const bool isOfTitle = key.kind == ElementKey::Kind::Title ||
                               key.kind == ElementKey::Kind::TitleMenu ||
                               key.kind == ElementKey::Kind::TitleEntry;
        if (key.process != owner) return false;
        return isOfTitle ? title == key.owner : StatusItemIdentifier{key.owner} == item;
    }

    /// When the outermost menu or the submenu at the key's path opened; none when it isn't open.
    std::optional<Seconds> openSince(const ElementKey& menu) const {
        const auto depth = menu.path.size();
        const bool isOpen = isOf(menu) && depth <= path.size() &&
                            std::equal(menu.path.begin(), menu.path.end(), path.begin());
        return isOpen && depth < openedAt.size() ? std::optional(openedAt[depth]) : std::nullopt;
    }
};

} // namespace mac_model
