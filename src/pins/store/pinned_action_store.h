#pragma once

#include "concurrency/signal.h"
#include "pins/store/pinned_action.h"
#include "platform/defaults.h"
#include "platform/text.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tavrin {

/// The pins in the user's order, kept in the application's own preferences. It alone changes the list, and
/// each change is published and saved at once; an operation that finds nothing to change does neither, except
/// where it says so. A stored list that can't be read, or that a newer release has written, is put aside
/// under `unreadableKey` for a repair by hand, and the list starts empty.
class PinnedActionStore {
  public:
    using Pins = std::vector<PinnedAction>;
    using IconSource =
        std::function<std::optional<std::vector<std::byte>>(const std::string& bundleIdentifier)>;

    static constexpr std::string_view key = "Tavrin.pinnedActions";
    static constexpr std::string_view unreadableKey = "Tavrin.pinnedActions.unreadable";

    /// Loads the list.
    PinnedActionStore(Defaults& defaults, const Text& text);

    const Pins& pins() const { return pins_.get(); }

    /// The list is saved by then.
    Subscription onPinsChanged(std::function<void(const Pins&)> handler) {
        return pins_.subscribe(std::move(handler));
    }

    std::optional<PinnedAction> pin(const Uuid& id) const;

    /// Appends the pin, unless there is one with the same target; returns the one that is stored.
    PinnedAction add(const PinnedAction& pin);

    /// White space at both ends of the name is dropped; a name of nothing else is ignored. Saves also when
    /// the name is the same.
    void rename(const Uuid& id, std::string_view name);

    /// Saves also when there was no such pin.
    void remove(const Uuid& id);

    /// Moves the pins at the offsets, in their order, to before the one at `destination`, counted in the list
    /// as it is now. Offsets outside the list don't count. Saves also when all keep their places.
    void move(const std::set<std::int64_t>& offsets, std::int64_t destination);

    /// Swaps the pin with the one `distance` places after it, or before it when negative.
    void move(const Uuid& id, std::int64_t distance);

    void markConfirmed(const Uuid& id);

    /// Without a failure the run counts as succeeded.
    void recordRun(const Uuid& id, std::optional<std::string> failure);

    void setHotKey(const Uuid& id, std::optional<HotKeyShortcut> hotKey);

    void clearFailures(std::string_view message);

    /// Asks `icons` at most once about each application.
    void fillMissingIcons(const IconSource& icons);

  private:
    using Change = std::function<void(PinnedAction&)>;

    void load();
    /// Saves and publishes.
    void replace(Pins pins);
    void change(const Uuid& id, const Change& change);
    void changeAll(const Change& change);

    Defaults& defaults_;
    const Text& text_;
    Published<Pins> pins_;
};

} // namespace tavrin
