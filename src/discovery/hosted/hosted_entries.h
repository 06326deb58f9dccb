#pragma once

#include "concurrency/waits.h"
#include "discovery/hosted/menu_bar_agent_slot_policy.h"
#include "discovery/menu_bar_item.h"
#include "platform/accessibility.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin {

class Text;
struct WindowElement;

/// The process that draws the menu bar since macOS 27.
inline constexpr std::string_view menuBarAgentBundle = "com.apple.MenuBarAgent";

/// One element of the agent's windows that may be a status item.
struct HostedEntry {
    AccessibilityElement element;
    ProcessIdentifier processIdentifier = -1; // of the item's owner, or the agent when it doesn't tell
    std::optional<std::string> canonicalIdentifier;
    std::optional<std::string> rawIdentifier;
    std::optional<std::string> label;
    std::optional<Rect> frame;            // where an item can be
    std::optional<MenuBarAgentSlot> slot; // none without a usable frame
};

/// Whether the entry stands at that frame, give or take 3 points. It must have a frame.
bool isAt(const HostedEntry&, const Rect& frame);

/// What the agent's tree told at one moment.
struct HostedBarReading {
    std::vector<HostedEntry> entries; // that count as items of the bar, on all displays
    std::optional<int> window;        // the one to go by, as the bar repeats on each display
};

/// Reads the entries. Blocks in messages: off the main thread.
class HostedEntryReader {
  public:
    using Applications = std::map<ProcessIdentifier, RunningApplicationSnapshot>;

    HostedEntryReader(Accessibility& accessibility, const Text& text)
        : accessibility_(accessibility)
        , text_(text) {}

    /// None when the agent's tree can't be read.
    std::optional<HostedBarReading> read(ProcessIdentifier agent, const Applications&,
                                         const AbandonFlag& abandoned) const;

  private:
    std::vector<HostedEntry> entriesOf(ProcessIdentifier agent, const Applications&,
                                       std::vector<WindowElement>) const;
    void identify(HostedEntry&, std::string_view bundleIdentifier) const;

    Accessibility& accessibility_;
    const Text& text_;
};

} // namespace tavrin
