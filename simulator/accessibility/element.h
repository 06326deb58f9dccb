#pragma once

#include "concurrency/scheduler.h"
#include "platform/accessibility.h"
#include "vocabulary/vocabulary.h"

#include <compare>
#include <cstdint>
#include <vector>

namespace mac_model {

/// Names an element of a process's tree for good: keys of different elements differ, also over time.
struct ElementKey {
    enum class Kind : std::uint8_t {
        Application,
        MenuBar,
        ExtrasBar,
        Group, // between the extras bar and the status item `owner`; `path` holds its depth
        StatusItem,
        StatusMenu, // the menu of status item `owner`, or the submenu of its entry at `path`
        StatusEntry,
        Title, // number `owner` in the menu bar
        TitleMenu,
        TitleEntry,
        AgentWindow, // of the agent of macOS 27: that of display number `owner`. Below it `path` has that
                     // number
        AgentGroup,
        AgentProxy,
        HostedItem,     // status item `owner` once more
        OverflowButton, // of those that find no room
    };

    ProcessIdentifier process = 0;
    Kind kind = Kind::Application;
    std::uint64_t owner = 0;
    std::uint64_t generation = 0;    // of a status menu: see StatusItemRecord::menuGeneration
    std::vector<std::uint32_t> path; // entries from the outermost menu inwards

    auto operator<=>(const ElementKey&) const = default;
};

class ElementReference final : public AccessibilityElement::Reference {
  public:
    explicit ElementReference(ElementKey key) : key_(std::move(key)) {}

    const ElementKey& key() const { return key_; }

    bool equals(const Reference& other) const override;
    std::size_t hash() const override;

    /// Zero is the default of the process.
    Seconds timeout() const { return timeout_; }

    void setTimeout(Seconds timeout) const { timeout_ = timeout; }

  private:
    ElementKey key_;
    // A time-out belongs to the reference, not to the element, and is set through a constant handle.
    mutable Seconds timeout_{0};
};

AccessibilityElement elementFor(ElementKey);

} // namespace mac_model
