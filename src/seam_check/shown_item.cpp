#include "seam_check/shown_item.h"

#include "concurrency/waits.h"
#include "platform/defaults.h"
#include "seam_check/waiting.h"

namespace tavrin::seam_check {

using namespace std::chrono_literals;

namespace {

constexpr auto positionKey = "NSStatusItem Preferred Position ";

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

Task<std::optional<ScratchItem>> shownItem(Platform platform, double length) {
    ScratchItem item(platform, "tavrin-seam-check", length, 150);
    if (!co_await comesTrue(platform, [&item] { return item.isDrawn(); }, 3s)) co_return std::nullopt;
    (void)co_await comesToRest(&*item);
    co_return std::move(item);
}

} // namespace tavrin::seam_check
