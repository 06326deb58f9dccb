#include "seam_check/shown_item.h"

#include "concurrency/waits.h"
#include "platform/defaults.h"
#include "seam_check/item_sight.h"
#include "seam_check/waiting.h"

namespace tavrin::seam_check {

using namespace std::chrono_literals;

namespace {

constexpr auto positionKey = "NSStatusItem Preferred Position ";

Verdict verdictOnMissing(const ItemSight& sight) {
    if (!sight.agrees()) return failed("What tells of a new item contradicts itself: " + said(sight) + ".");
    return skipped("macOS draws no new item: the menu bar may be full or hidden, or this program's items not "
                   "allowed. The item is " +
                   said(sight) + ".");
}

} // namespace

ScratchItem::ScratchItem(Platform platform, std::string name, double length, double position)
    : platform_(platform)
    , name_(std::move(name)) {
    const auto domain = platform_.defaults.ownDomain();
    platform_.defaults.set(domain, positionKey + name_, {position});
    platform_.defaults.synchronize(domain);
    item_ = platform_.statusItems.create(length);
    item_->setAutosaveName(name_);
    item_->setImage({TemplateImage::Source::System, "checkmark.circle", "Tavrin"});
}

bool ScratchItem::isPlaced() const { return item_->frame().value_or(Rect{}).height > 0; }

ScratchItem::~ScratchItem() {
    if (!item_) return;
    item_.reset();
    forget();
}

void ScratchItem::forget() const {
    const auto domain = platform_.defaults.ownDomain();
    for (const auto* key : {positionKey, "NSStatusItem Visible ", "NSStatusItem VisibleCC "})
        platform_.defaults.remove(domain, key + name_);
    platform_.defaults.synchronize(domain);
}

Task<bool> comesToRest(const StatusItem* item) {
    auto last = item->frame();
    for (int n = 0; n < 20; ++n) {
        if (co_await sleepFor(150ms) == Wake::CutShort) co_return false;
        const auto frame = item->frame();
        if (frame == last) co_return true;
        last = frame;
    }
    co_return false;
}

Task<std::expected<ScratchItem, Verdict>> shownItem(Platform platform, double length) {
    ScratchItem item(platform, "tavrin-seam-check", length, 150);
    if (!co_await comesTrue(platform, [&item] { return item.isDrawn(); }, placementTimeMax))
        co_return std::unexpected(verdictOnMissing(lookAt(platform, *item)));
    (void)co_await comesToRest(&*item);
    co_return std::move(item);
}

Task<std::expected<ItemPair, Verdict>> shownPair(Platform platform) {
    // Without stored places the item that is made later would stand further left.
    ItemPair pair{{platform, "tavrin-seam-check-left", 24, 160},
                  {platform, "tavrin-seam-check-right", 24, 150}};
    const auto areDrawn = [&pair] { return pair.left.isDrawn() && pair.right.isDrawn(); };
    if (!co_await comesTrue(platform, areDrawn, placementTimeMax)) {
        const auto& missing = pair.left.isDrawn() ? pair.right : pair.left;
        co_return std::unexpected(verdictOnMissing(lookAt(platform, *missing)));
    }
    (void)co_await comesToRest(&*pair.left);
    (void)co_await comesToRest(&*pair.right);
    co_return std::move(pair);
}

} // namespace tavrin::seam_check
