#include "menu_bar/arrangement.h"

#include "menu_bar/system_item_numbers.h"
#include "menu_bar/titles.h"

#include <algorithm>
#include <tuple>

namespace mac_model {

namespace {

constexpr std::string_view agentBundle = "com.apple.MenuBarAgent";

} // namespace

Arrangement::Arrangement(VirtualScheduler& scheduler, StatusItemTable& items, ProcessTable& processes,
                         ScreensModel& screens, VisibilityLists& visibility, const Behaviour& behaviour)
    : scheduler_(scheduler)
    , world_(scheduler)
    , items_(items)
    , processes_(processes)
    , screens_(screens)
    , visibility_(visibility)
    , behaviour_(behaviour) {
    refresh();
    arrange();
    subscriptions_.push_back(items.onPlacesStale.subscribe([this] { refresh(); }));
    subscriptions_.push_back(processes.onFrontChanged.subscribe([this] { refresh(); }));
    subscriptions_.push_back(processes.onResumed.subscribe([this](ProcessIdentifier) { refresh(); }));
    subscriptions_.push_back(visibility.onChanged.subscribe([this] { visibilityChanged(); }));
    subscriptions_.push_back(screens.onChanged.subscribe([this] { refresh(); }));
    subscriptions_.push_back(screens.onUnseenChanged.subscribe([this] { refresh(); }));
}

void Arrangement::refresh() {
    if (std::exchange(isArranging_, true)) return;
    world_.after(behaviour_.faults.arrangingTime, [this] {
        isArranging_ = false;
        arrange();
    });
}

void Arrangement::arrangeAfter(Seconds delay) {
    world_.after(delay, [this] { arrange(); });
}

const Process* Arrangement::agent() const {
    const auto running =
        behaviour_.hasHostedBar() ? processes_.withBundle(agentBundle) : std::vector<ProcessIdentifier>{};
    return running.empty() ? nullptr : processes_.find(running.front());
}

bool Arrangement::isKeptOut(const StatusItemRecord& record) const {
    if (record.isRestricted || !behaviour_.hasHostedBar()) return record.isRestricted;
    const auto* owner = processes_.find(record.owner);
    return owner && !visibility_.isShown(owner->application.bundleIdentifier,
                                         systemItemNumber(record, owner->application));
}

void Arrangement::visibilityChanged() {
    for (const auto* record : items_.items())
        if (record->isCarried && isKeptOut(*record)) items_.onLeaving.emit(record->identifier);
    refresh();
}

bool Arrangement::isBarShown() const {
    return screens_.isMenuBarShown() && (!behaviour_.hasHostedBar() || agent());
}

const StatusItemRecord* Arrangement::itemAt(Point point) const {
    if (!screens_.isMenuBarShown()) return nullptr;
    const auto& screens = screens_.screens();
    for (std::size_t i = 0; i < screens.size(); ++i) {
        const auto& screen = screens[i];
        const Rect bar{screen.frame.x, screen.frame.y, screen.frame.width, screen.menuBarHeight};
        if (!bar.contains(point)) continue;
        const auto notch = notchOf(screen);
        if (notch && notch->contains(point)) return nullptr;
        if (behaviour_.hasHostedBar()) return hostedItemAt(i, point);
        for (const auto* record : items_.items()) {
            // The notch of the primary screen hides nothing on the others.
            if (!record->isDrawn && record->why != HiddenReason::Notch) continue;
            const auto frame = frameOn(screen, *record);
            if (frame && point.x >= frame->x && point.x < frame->maxX()) return record;
        }
    }
    return nullptr;
}

const StatusItemRecord* Arrangement::hostedItemAt(std::size_t screen, Point point) const {
    const auto* host = agent();
    if (!host || !host->application.responding || screen >= bars_.size()) return nullptr;
    for (const auto& place : bars_[screen].items) {
        const auto* record = items_.find(place.identifier);
        const bool isThere = point.x >= place.frame.x && point.x < place.frame.maxX();
        if (record && place.isDrawn && isThere) return record;
    }
    return nullptr;
}

std::optional<Rect> Arrangement::frameOn(const ScreenSpec& screen, const StatusItemRecord& record) const {
    const auto* primary = screens_.primary();
    if (!record.frame || !primary) return std::nullopt;
    auto frame = frameOnScreen(*record.frame, *primary, screen);
    frame.y -= screens_.menuBarLift(screen);
    return frame;
}

Rect Arrangement::accessibilityFrame(const StatusItemRecord& record) const {
    const bool isHidden = record.why && record.why != HiddenReason::BarNotVisible;
    if (const auto hosted = frameOnActiveBar(record)) return *hosted;
    if (behaviour_.hasHostedBar() && isHidden) return frameWhereNotDrawn(record);
    auto frame = screens_.onActiveBar(record.frame.value_or(Rect{}));
    const bool isClamped = behaviour_.uncertainties.offscreenFrames == OffscreenFrames::Clamped;
    if (isClamped && record.why == HiddenReason::Offscreen) frame.x = -1;
    return frame;
}

/// Where the agent draws it on another display than the primary, if that is the active one.
std::optional<Rect> Arrangement::frameOnActiveBar(const StatusItemRecord& record) const {
    const auto active = screens_.activeIndex();
    if (active == 0 || active >= bars_.size()) return std::nullopt;
    const auto* place = bars_[active].find(record.identifier);
    if (!place || !place->isDrawn) return frameWhereNotDrawn(record);
    auto frame = place->frame;
    frame.y -= screens_.menuBarLift(screens_.screens()[active]);
    return frame;
}

Rect Arrangement::frameWhereNotDrawn(const StatusItemRecord& record) const {
    const auto frameSetting = behaviour_.uncertainties.overflowFrame;
    if (frameSetting == OverflowFrame::Stale) return record.lastDrawnFrame.value_or(Rect{});
    return frameSetting == OverflowFrame::Parked ? parkedFrame(record) : Rect{};
}

/// Left of all screens.
Rect Arrangement::parkedFrame(const StatusItemRecord& record) const {
    const auto* primary = screens_.primary();
    if (!primary) return {};
    double left = primary->frame.x;
    for (const auto& screen : screens_.screens()) left = std::min(left, screen.frame.x);
    const double width = widthOf(record);
    return placeInBar(*primary, left - width, width);
}

std::optional<Rect> Arrangement::frameForOwner(const StatusItemRecord& record) const {
    const bool isHidden = record.frame && record.why && record.why != HiddenReason::BarNotVisible;
    if (!behaviour_.hasHostedBar() || !isHidden) return record.frame;
    return record.lastDrawnFrame.value_or(parkedFrame(record));
}

bool Arrangement::isDrawnForOwner(StatusItemIdentifier identifier) const {
    const auto* record = items_.find(identifier);
    if (!record || !record->isDrawn) return false;
    return !behaviour_.faults.occlusionLag || !arrangedAt_ || scheduler_.now() >= *arrangedAt_ + occlusionLag;
}

void Arrangement::storePositions(ProcessIdentifier owner) {
    for (const auto* record : items_.itemsOf(owner)) {
        if (!record->frame || record->preferredPosition) continue;
        items_.storePosition(*record, positionToStore(*record));
    }
}

/// The item's distance from the right edge, or more where the present order needs it.
double Arrangement::positionToStore(const StatusItemRecord& record) const {
    double position = screens_.primary() ? screens_.primary()->frame.maxX() - record.frame->maxX() : 0;
    for (const auto* other : items_.items())
        if (other->preferredPosition && other->frame && other->frame->x >= record.frame->maxX())
            position = std::max(position, *other->preferredPosition + 1);
    return position;
}

std::vector<StatusItemIdentifier> Arrangement::run() const {
    std::vector<StatusItemIdentifier> order;
    for (const auto& place : places()) {
        const auto& record = *items_.find(place.identifier);
        if (!isKeptOut(record) && !record.isBehindNotch) order.push_back(place.identifier);
    }
    return order;
}

double Arrangement::widthOf(const StatusItemRecord& record) const {
    const double width = record.length < 0 ? squareWidth : record.length;
    const auto* primary = screens_.primary();
    const bool takesNoRoom = behaviour_.hasHostedBar() && primary && isLongOn(*primary, width);
    return takesNoRoom ? 0 : width;
}

/// While an item is carried, the run stands as the person has arranged it.
std::optional<double> Arrangement::rankOf(StatusItemIdentifier identifier) const {
    const auto& order = carried_->order;
    const auto found = std::ranges::find(order, identifier);
    if (found == order.end()) return std::nullopt;
    return static_cast<double>(found - order.begin() + 1);
}

LayoutItem Arrangement::layoutItem(const StatusItemRecord& record) const {
    LayoutItem item;
    item.identifier = record.identifier;
    item.owner = record.owner;
    item.width = record.length < 0 ? squareWidth : record.length;
    item.preferredPosition = carried_ ? rankOf(record.identifier) : record.preferredPosition;
    item.isFixed = record.spec.fixed;
    item.isClock = record.isClock();
    item.isForcedBehindNotch = record.isBehindNotch;
    item.isRestricted = isKeptOut(record);
    return item;
}

std::vector<LayoutItem> Arrangement::layoutItems() const {
    std::vector<LayoutItem> items;
    for (const auto* record : items_.items())
        if (record->isVisible) items.push_back(layoutItem(*record));
    return items;
}

LayoutRules Arrangement::rulesOn(const ScreenSpec& screen) const {
    const auto* owner = processes_.menuBarOwner();
    const double end = menusEnd(owner ? &owner->application : nullptr, screen);
    return {behaviour_.uncertainties, behaviour_.faults.dropsOwnersOfLongItems, end};
}

std::vector<PlacedItem> Arrangement::places() const {
    const auto* screen = screens_.primary();
    if (!screen) return {};
    const auto rules = rulesOn(*screen);
    if (behaviour_.hasHostedBar()) return layOutHostedBar(layoutItems(), *screen, rules).items;
    return layOutStatusItems(layoutItems(), *screen, rules);
}

std::vector<HostedBar> Arrangement::layOutHostedBars() const {
    std::vector<HostedBar> bars;
    if (!agent()) return bars;
    const auto items = layoutItems();
    for (const auto& screen : screens_.screens())
        bars.push_back(layOutHostedBar(items, screen, rulesOn(screen)));
    return bars;
}

/// A hidden menu bar takes its items along, off the top; behind a locked screen they stay where they are, and
/// so they do when nobody draws them.
PlacedItem Arrangement::asSeen(PlacedItem place) const {
    if (isBarShown()) return place;
    if (const auto* primary = screens_.primary()) place.frame.y -= screens_.menuBarLift(*primary);
    if (place.isDrawn) place.why = HiddenReason::BarNotVisible;
    place.isDrawn = false;
    return place;
}

std::map<StatusItemIdentifier, PlacedItem> Arrangement::seenPlaces() const {
    std::map<StatusItemIdentifier, PlacedItem> seen;
    for (const auto& place : places()) seen.emplace(place.identifier, asSeen(place));
    return seen;
}

void Arrangement::arrange() {
    const auto* host = agent();
    if (host && !host->application.responding) return;
    const auto barsBefore = std::exchange(bars_, layOutHostedBars());
    const auto placed = seenPlaces();
    bool hasMoved = false;
    bool hasChanged = barsBefore != bars_;
    bool hasProgramChanged = false;
    for (const auto* item : items_.items()) {
        auto& record = *items_.change(item->identifier);
        const auto found = placed.find(record.identifier);
        const auto before = std::tuple(record.frame, record.isDrawn, record.why);
        const bool isPlaced = found != placed.end();
        record.frame = isPlaced ? std::optional(found->second.frame) : std::nullopt;
        record.isDrawn = isPlaced && found->second.isDrawn;
        record.why = isPlaced ? found->second.why : std::nullopt;
        if (record.isDrawn) record.lastDrawnFrame = record.frame;
        record.isCarried = carried_ && carried_->identifier == record.identifier;
        if (record.isCarried && record.frame) record.frame->x = carried_->x;
        const bool isProgram = record.origin == ItemOrigin::Program;
        hasProgramChanged = hasProgramChanged || (isProgram && std::get<1>(before) != record.isDrawn);
        hasMoved = hasMoved || std::get<0>(before) != record.frame;
        hasChanged = hasChanged || before != std::tuple(record.frame, record.isDrawn, record.why);
    }
    if (hasMoved) {
        arrangedAt_ = scheduler_.now();
        world_.after(occlusionLag, [] {}); // so that waiting for everything to settle includes this
    }
    if (hasProgramChanged) world_.after(occlusionLag, [this] { onProgramItemsDrawn.emit(); });
    if (hasChanged) items_.onChanged.emit();
}

} // namespace mac_model
