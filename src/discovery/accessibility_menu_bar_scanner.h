#pragma once

#include "accessibility/application_reader.h"
#include "concurrency/waits.h"
#include "discovery/bar_scan.h"
#include "discovery/hiding_boundary.h"
#include "discovery/item_snapshots.h"
#include "discovery/menu_bar_item.h"
#include "discovery/scan_result.h"

#include <expected>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin {

class Defaults;
class Scheduler;
class Text;
class Workspace;

/// The facts that a scan reads of an item before it knows which item it is.
struct MenuBarItemScanMetadata {
    std::optional<std::string> role;
    std::optional<std::string> rawIdentifier;
    std::optional<std::string> label; // trimmed; never empty
    Rect frame;
};

/// How many items an application shows, and where.
struct ExtrasMenuBarPresence {
    std::string bundleIdentifier;
    ProcessIdentifier processIdentifier = -1;
    std::string applicationName;
    int itemCount = 0;
    std::vector<Rect> frames;

    bool operator==(const ExtrasMenuBarPresence&) const = default;
};

/// Finds the status items of running applications. All operations block in messages to other processes: call
/// them off the main thread. An application that does not answer costs one messaging time-out and shows no
/// items.
class AccessibilityMenuBarScanner final : public BarScan {
  public:
    static constexpr Seconds messagingTimeout{0.5};

    AccessibilityMenuBarScanner(Scheduler& scheduler, Accessibility& accessibility, const Defaults& defaults,
                                const Workspace& workspace, const Text& text);

    /// The items of just these applications, in the order of MenuBarItemScanPolicy::sort. What lies left of
    /// the boundary is hidden. The error is that macOS refuses the messages, so that nothing is known, or
    /// that `abandoned` was raised. One application that fails while others answer is no such error.
    std::expected<ScanResult, ReadFailure> scan(std::span<const RunningApplicationSnapshot> applications,
                                                const HidingBoundary& boundary,
                                                const AbandonFlag& abandoned = {}) const override;

    /// Counts the items of the applications that are not Apple's, all at once, in the order of the
    /// applications.
    std::vector<ExtrasMenuBarPresence>
    extrasPresence(std::span<const RunningApplicationSnapshot> applications, Seconds messagingTimeout) const;

    /// The live element of an item found earlier; none when it can't be told for certain which one that is.
    std::optional<AccessibilityElement> resolveElement(const MenuBarItemSnapshot& snapshot) const;

  private:
    struct ItemCandidate {
        AccessibilityElement element;
        MenuBarItemScanMetadata metadata;
        std::optional<std::string> directlyResolvedIdentifier;
    };

    struct ItemRecord {
        AccessibilityElement element;
        MenuBarItemScanMetadata metadata;
        std::optional<std::string> canonicalIdentifier;
    };

    using Records = std::expected<std::vector<ItemRecord>, ReadFailure>;

    Records menuBarItemRecords(const RunningApplicationSnapshot& application,
                               const AbandonFlag& abandoned) const;
    bool answers(ProcessIdentifier process) const;
    ItemCandidate candidate(MenuBarElement element, std::string_view bundleIdentifier) const;
    void identifyByPosition(std::vector<ItemCandidate>& candidates) const;
    static std::vector<ItemFacts> factsOf(const std::vector<ItemRecord>& records);
    std::optional<ExtrasMenuBarPresence> presence(const RunningApplicationSnapshot& application,
                                                  Seconds timeout) const;

    Scheduler& scheduler_;
    Accessibility& accessibility_;
    const Defaults& defaults_;
    const Workspace& workspace_;
    const Text& text_;
};

} // namespace tavrin
