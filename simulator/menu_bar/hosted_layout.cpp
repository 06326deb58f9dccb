#include "menu_bar/hosted_layout.h"

#include <algorithm>

namespace mac_model {

namespace {

constexpr double overflowButtonWidth = 26;

double leftEndOf(const ScreenSpec& screen, double menusEnd) {
    const auto notch = notchOf(screen);
    return notch ? std::max(notch->maxX(), menusEnd) : menusEnd;
}

/// Fills the run from right to left.
class HostedRun {
  public:
    HostedRun(const ScreenSpec& screen, double leftEnd)
        : screen_(screen)
        , edge_(screen.frame.maxX())
        , leftEnd_(leftEnd) {}

    void place(const std::vector<const LayoutItem*>& run) {
        if (widthOf(run) > edge_ - leftEnd_)
            bar_.overflow = placeInBar(screen_, leftEnd_, overflowButtonWidth);
        for (const auto* item : run) bar_.items.push_back(placed(*item));
    }

    HostedBar take() { return std::move(bar_); }

  private:
    double widthOf(const std::vector<const LayoutItem*>& run) const {
        double width = 0;
        for (const auto* item : run) width += isLongOn(screen_, item->width) ? 0 : item->width;
        return width;
    }

    PlacedItem placed(const LayoutItem& item) {
        if (isLongOn(screen_, item.width))
            return {item.identifier, placeInBar(screen_, edge_, 0), false, HiddenReason::Dropped};
        if (!item.isFixed && !hasRoomFor(item.width))
            return {item.identifier, *bar_.overflow, false, HiddenReason::Overflow};
        edge_ -= item.width;
        return {item.identifier, placeInBar(screen_, edge_, item.width), item.width > 0, std::nullopt};
    }

    bool hasRoomFor(double width) {
        isFull_ = isFull_ || (bar_.overflow && edge_ - width < bar_.overflow->maxX());
        return !isFull_;
    }

    const ScreenSpec& screen_;
    double edge_;
    double leftEnd_;
    bool isFull_ = false;
    HostedBar bar_;
};

} // namespace

const PlacedItem* HostedBar::find(StatusItemIdentifier identifier) const {
    const auto found = std::ranges::find(items, identifier, &PlacedItem::identifier);
    return found == items.end() ? nullptr : &*found;
}

HostedBar layOutHostedBar(std::span<const LayoutItem> items, const ScreenSpec& screen,
                          const LayoutRules& rules) {
    HostedRun run(screen, leftEndOf(screen, rules.menusEnd));
    run.place(runOf(items, screen, rules));
    auto bar = run.take();
    placeOutsideRun(items, screen, rules, bar.items);
    return bar;
}

} // namespace mac_model
