#pragma once

#include "discovery/accessibility_menu_bar_scanner.h"
#include "discovery/bar_scan.h"
#include "discovery/hosted/menu_bar_agent_scanner.h"

#include <expected>
#include <span>
#include <utility>
#include <vector>

namespace tavrin {

/// Finds the items since macOS 27, where an agent draws them: what the agent shows of what the applications
/// list, and Control Center's extras as the agent has them. While the agent can't be read the applications
/// alone are believed.
class NativeScan final : public BarScan {
  public:
    /// `own` is this program's process.
    NativeScan(AccessibilityMenuBarScanner applications, MenuBarAgentScanner agent, ProcessIdentifier own)
        : applications_(std::move(applications))
        , agent_(std::move(agent))
        , own_(own) {}

    /// No item is hidden by its place, so the boundary has no meaning.
    std::expected<ScanResult, ReadFailure> scan(std::span<const RunningApplicationSnapshot> applications,
                                                const HidingBoundary& boundary,
                                                const AbandonFlag& abandoned) const override;

  private:
    std::optional<MenuBarAgentScanResult>
    readAgent(ProcessIdentifier agent, std::span<const RunningApplicationSnapshot>, const AbandonFlag&) const;

    AccessibilityMenuBarScanner applications_;
    MenuBarAgentScanner agent_;
    ProcessIdentifier own_;
};

} // namespace tavrin
