#include "menu_bar/status_layout.h"

#include <algorithm>
#include <limits>
#include <map>
#include <tuple>

namespace mac_model {

namespace {

constexpr double itemHeight = 24;
constexpr double narrowestSliver = 1; // of an item beside the notch that still counts as drawn
constexpr double veryWideScreen = 2560;

/// The sort key of a run: smaller is further right. Identifiers ascend with creation.
auto orderOf(const LayoutItem& item, ZeroPosition zero) {
    constexpr double leftOfAll = std::numeric_limits<double>::infinity();
    const bool isForgotten = item.preferredPosition == 0.0 && zero == ZeroPosition::Leftmost;
    const double position = isForgotten ? leftOfAll : item.preferredPosition.value_or(leftOfAll);
    return std::tuple(!item.isFixed, !(item.isFixed && item.isClock), position, item.identifier);
}

bool isUnderNotch(const LayoutItem& item, const ScreenSpec& screen) {
    return item.isForcedBehindNotch && screen.hasNotch();
}

struct Layout {
    std::span<const LayoutItem> items;
    const ScreenSpec& screen;
    const LayoutRules& rules;
    std::optional<Rect> notch = notchOf(screen);

    bool isLong(const LayoutItem& item) const { return isLongOn(screen, item.width); }

    /// The width of the run's n-th item in the run. On a very wide screen a long item may leave its left
    /// neighbours the room beside the menus.
    double widthInRun(const std::vector<const LayoutItem*>& ordered, std::size_t n, double rightEdge) const {
        const auto& item = *ordered[n];
        if (!isLong(item)) return item.width;
        const bool stops = rules.uncertainties.longItem == LongItem::StopsAtMenus;
        if (!stops || screen.frame.width < veryWideScreen) return item.width;
        double neighbours = 0;
        for (std::size_t left = n + 1; left < ordered.size(); ++left) neighbours += ordered[left]->width;
        return std::clamp(rightEdge - rules.menusEnd - neighbours, 0.0, item.width);
    }

    /// The width of the frame's part that lies on the screen and beside the notch.
    double visibleWidth(const Rect& frame) const {
        const auto overlap = [&](double left, double right) {
            return std::max(0.0, std::min(frame.maxX(), right) - std::max(frame.x, left));
        };
        const double onScreen = overlap(screen.frame.x, screen.frame.maxX());
        return notch ? onScreen - overlap(notch->x, notch->maxX()) : onScreen;
    }

    std::optional<HiddenReason> reasonToHide(const LayoutItem& item, const Rect& frame) const {
        if (frame.width <= 0) return std::nullopt;
        if (frame.maxX() <= screen.frame.x) return HiddenReason::Offscreen;
        if (frame.x < rules.menusEnd && !isLong(item) && !item.isFixed) return HiddenReason::Dropped;
        if (visibleWidth(frame) < narrowestSliver) return HiddenReason::Notch;
        return std::nullopt;
    }

    PlacedItem placed(const LayoutItem& item, const Rect& frame) const {
        const auto why = reasonToHide(item, frame);
        return {item.identifier, frame, !why && frame.width > 0, why};
    }

    std::vector<PlacedItem> placeRun() const {
        std::vector<PlacedItem> result;
        const auto ordered = runOf(items, screen, rules);
        double edge = screen.frame.maxX();
        for (std::size_t n = 0; n < ordered.size(); ++n) {
            const double width = widthInRun(ordered, n, edge);
            edge -= width;
            result.push_back(placed(*ordered[n], placeInBar(screen, edge, width)));
        }
        return result;
    }

    void dropNeighboursOfLongItems(std::vector<PlacedItem>& result) const {
        std::map<std::int32_t, StatusItemIdentifier> longItems;
        std::map<StatusItemIdentifier, std::int32_t> owners;
        for (const auto& item : items) {
            owners[item.identifier] = item.owner;
            if (isLong(item)) longItems[item.owner] = item.identifier;
        }
        for (auto& place : result) {
            const auto found = longItems.find(owners[place.identifier]);
            if (found == longItems.end() || found->second == place.identifier || !place.isDrawn) continue;
            place.isDrawn = false;
            place.why = HiddenReason::Dropped;
        }
    }
};

} // namespace

std::vector<const LayoutItem*> runOf(std::span<const LayoutItem> items, const ScreenSpec& screen,
                                     const LayoutRules& rules) {
    std::vector<const LayoutItem*> run;
    for (const auto& item : items)
        if (!item.isRestricted && !isUnderNotch(item, screen)) run.push_back(&item);
    const auto order = [&](const LayoutItem* item) {
        return orderOf(*item, rules.uncertainties.zeroPosition);
    };
    std::ranges::sort(run, {}, order);
    return run;
}

void placeOutsideRun(std::span<const LayoutItem> items, const ScreenSpec& screen, const LayoutRules& rules,
                     std::vector<PlacedItem>& result) {
    const Layout layout{items, screen, rules};
    double underNotch = layout.notch ? layout.notch->maxX() : 0;
    for (const auto& item : items) {
        if (item.isRestricted) {
            // Where such windows are seen to wait.
            const Rect waiting{screen.frame.x - 1, screen.frame.maxY() - 1, 38, itemHeight};
            result.push_back({item.identifier, waiting, false, HiddenReason::Restricted});
        } else if (isUnderNotch(item, screen)) {
            underNotch -= item.width;
            result.push_back(layout.placed(item, placeInBar(screen, underNotch, item.width)));
        }
    }
}

Rect placeInBar(const ScreenSpec& screen, double x, double width) {
    const double height = std::min(itemHeight, screen.menuBarHeight);
    return {x, screen.frame.y + (screen.menuBarHeight - height) / 2, width, height};
}

std::vector<PlacedItem> layOutStatusItems(std::span<const LayoutItem> items, const ScreenSpec& screen,
                                          const LayoutRules& rules) {
    const Layout layout{items, screen, rules};
    auto result = layout.placeRun();
    placeOutsideRun(items, screen, rules, result);
    if (rules.dropsOwnersOfLongItems) layout.dropNeighboursOfLongItems(result);
    return result;
}

bool isLongOn(const ScreenSpec& screen, double width) { return width >= screen.frame.width / 2; }

std::optional<Rect> notchOf(const ScreenSpec& screen) {
    if (!screen.hasNotch()) return std::nullopt;
    const double left = screen.leftMenuBarArea->maxX();
    return Rect{left, screen.frame.y, screen.rightMenuBarArea->x - left, screen.leftMenuBarArea->height};
}

Rect frameOnScreen(Rect frame, const ScreenSpec& primary, const ScreenSpec& other) {
    const double fromRight = primary.frame.maxX() - frame.x;
    return placeInBar(other, other.frame.maxX() - fromRight, frame.width);
}

} // namespace mac_model
