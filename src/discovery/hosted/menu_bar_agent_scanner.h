#pragma once

#include "concurrency/waits.h"
#include "discovery/hosted/hosted_entries.h"
#include "discovery/menu_bar_item.h"

#include <optional>
#include <string_view>
#include <vector>

namespace tavrin {

class Accessibility;
class Text;

struct MenuBarAgentScanResult {
    std::vector<MenuBarItemSnapshot> items;
    std::vector<Rect> clockFrames;    // on all displays
    int ownItemCount = 0;             // of this program, drawn by the agent
    std::vector<HostedEntry> entries; // of others, whether or not it can be told whose items they are
};

/// Reads the tree of the process that draws the menu bar since macOS 27, and tells whose items stand there.
/// How that tree is built, and which process answers for an item in it, isn't documented; so any nesting is
/// taken, and what can't be told is left out. Operations block in messages: call them off the main thread.
class MenuBarAgentScanner {
  public:
    static constexpr std::string_view controlCenterBundle = "com.apple.controlcenter";

    using Applications = HostedEntryReader::Applications;

    struct HostedElement {
        AccessibilityElement element;
        Rect frame;
    };

    MenuBarAgentScanner(Accessibility& accessibility, const Text& text)
        : reader_(accessibility, text)
        , text_(text) {}

    /// None when the agent's tree can't be read.
    std::optional<MenuBarAgentScanResult> scan(ProcessIdentifier agent, ProcessIdentifier own,
                                               const Applications& applications,
                                               const AbandonFlag& abandoned = {}) const;

    /// The agent's element of an item found earlier, to press it; the leftmost of several that equal it.
    std::optional<HostedElement> resolveElement(const MenuBarItemSnapshot& item,
                                                ProcessIdentifier agent) const;

    /// Control Center's items last, and each group by name.
    void sort(std::vector<MenuBarItemSnapshot>& items) const;

  private:
    using Items = std::vector<MenuBarItemSnapshot>;

    Items itemsOf(const RunningApplicationSnapshot&, const std::vector<HostedEntry>&) const;
    Items controlCentersItems(const std::vector<HostedEntry>&, ProcessIdentifier agent,
                              const Applications&) const;

    HostedEntryReader reader_;
    const Text& text_;
};

} // namespace tavrin
