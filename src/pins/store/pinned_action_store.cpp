#include "pins/store/pinned_action_store.h"

#include "pins/store/pinned_action_document.h"
#include "settings/own_choice.h"

#include <algorithm>
#include <map>
#include <utility>

namespace tavrin {

PinnedActionStore::PinnedActionStore(Defaults& defaults, const Text& text)
    : defaults_(defaults)
    , text_(text) {
    load();
}

void PinnedActionStore::load() {
    const auto stored = defaults_.value(defaults_.ownDomain(), key);
    // A value of another type isn't ours: reading it as data finds nothing.
    const auto* document = stored ? std::get_if<DefaultsData>(&stored->value) : nullptr;
    if (!document) return;
    if (auto pins = PinnedActionDocument::decode(*document))
        pins_.set(std::move(*pins));
    else
        storeOwnChoice(defaults_, unreadableKey, {*document});
}

void PinnedActionStore::replace(Pins pins) {
    storeOwnChoice(defaults_, key, {PinnedActionDocument::encode(pins)});
    pins_.set(std::move(pins));
}

std::optional<PinnedAction> PinnedActionStore::pin(const Uuid& id) const {
    const auto& pins = pins_.get();
    const auto found = std::ranges::find(pins, id, &PinnedAction::id);
    return found == pins.end() ? std::nullopt : std::optional(*found);
}

PinnedAction PinnedActionStore::add(const PinnedAction& pin) {
    auto pins = pins_.get();
    const auto twin = std::ranges::find_if(
        pins, [&](const PinnedAction& stored) { return stored.hasSameTarget(pin, text_); });
    if (twin != pins.end()) return *twin;
    pins.push_back(pin);
    replace(std::move(pins));
    return pin;
}

void PinnedActionStore::rename(const Uuid& id, std::string_view name) {
    auto trimmed = text_.trimmed(name);
    auto pins = pins_.get();
    const auto pin = std::ranges::find(pins, id, &PinnedAction::id);
    if (trimmed.empty() || pin == pins.end()) return;
    pin->name = std::move(trimmed);
    replace(std::move(pins));
}

void PinnedActionStore::remove(const Uuid& id) {
    auto pins = pins_.get();
    std::erase_if(pins, [&id](const PinnedAction& pin) { return pin.id == id; });
    replace(std::move(pins));
}

void PinnedActionStore::move(const std::set<std::int64_t>& offsets, std::int64_t destination) {
    Pins moved;
    Pins remaining;
    std::int64_t offset = 0;
    std::int64_t movedBefore = 0; // the destination
    for (const auto& pin : pins_.get()) {
        const bool isMoved = offsets.contains(offset);
        (isMoved ? moved : remaining).push_back(pin);
        if (isMoved && offset < destination) ++movedBefore;
        ++offset;
    }
    if (moved.empty()) return;
    const auto place = std::clamp<std::int64_t>(destination - movedBefore, 0, std::ssize(remaining));
    remaining.insert(remaining.begin() + place, moved.begin(), moved.end());
    replace(std::move(remaining));
}

void PinnedActionStore::move(const Uuid& id, std::int64_t distance) {
    auto pins = pins_.get();
    const auto place = std::ranges::find(pins, id, &PinnedAction::id) - pins.begin();
    const auto isWithin = distance >= -place && distance < std::ssize(pins) - place;
    if (place == std::ssize(pins) || !isWithin) return;
    std::swap(pins[static_cast<std::size_t>(place)], pins[static_cast<std::size_t>(place + distance)]);
    replace(std::move(pins));
}

void PinnedActionStore::markConfirmed(const Uuid& id) {
    change(id, [](PinnedAction& pin) { pin.hasConfirmedFirstRun = true; });
}

void PinnedActionStore::recordRun(const Uuid& id, std::optional<std::string> failure) {
    change(id, [&failure](PinnedAction& pin) { pin.lastFailure = std::move(failure); });
}

void PinnedActionStore::setHotKey(const Uuid& id, std::optional<HotKeyShortcut> hotKey) {
    change(id, [&hotKey](PinnedAction& pin) { pin.hotKey = hotKey; });
}

void PinnedActionStore::clearFailures(std::string_view message) {
    changeAll([message](PinnedAction& pin) {
        if (pin.lastFailure == message) pin.lastFailure.reset();
    });
}

void PinnedActionStore::fillMissingIcons(const IconSource& icons) {
    std::map<std::string, std::optional<std::vector<std::byte>>> known;
    changeAll([&](PinnedAction& pin) {
        if (pin.iconPng) return;
        const auto [found, isNew] = known.try_emplace(pin.bundleIdentifier);
        if (isNew) found->second = icons(pin.bundleIdentifier);
        pin.iconPng = found->second;
    });
}

void PinnedActionStore::change(const Uuid& id, const Change& change) {
    auto pins = pins_.get();
    const auto pin = std::ranges::find(pins, id, &PinnedAction::id);
    if (pin == pins.end()) return;
    change(*pin);
    if (pins != pins_.get()) replace(std::move(pins));
}

void PinnedActionStore::changeAll(const Change& change) {
    auto pins = pins_.get();
    std::ranges::for_each(pins, change);
    if (pins != pins_.get()) replace(std::move(pins));
}

} // namespace tavrin
