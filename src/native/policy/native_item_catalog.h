#pragma once

#include "discovery/menu_bar_item.h"
#include "native/policy/native_expanded_rescue_latch.h"

#include <map>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace tavrin {

/// The items that scans have found since their applications started, also those that are withheld now: where
/// each was seen last, and how wide.
class NativeItemCatalog {
  public:
    void merge(std::span<const MenuBarItemSnapshot> scanned);

    /// Forgets the items of all other processes.
    void retain(const std::set<ProcessIdentifier>& running);

    /// Only what an unrestricted menu bar shows is as wide as it would be after a release.
    void recordWidths(std::span<const MenuBarItemSnapshot> scanned);

    NativeExpandedRescueLatch::Measures measures() const;

    /// Units in the order in which they are let back: the neighbour of the lane first, and those that were
    /// never seen in the bar last.
    std::vector<std::string> releaseOrder(const std::set<std::string>& units) const;

  private:
    std::map<std::string, MenuBarItemSnapshot> items_;
    std::map<std::string, double> widths_; // points
};

} // namespace tavrin
