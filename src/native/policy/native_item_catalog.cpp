#include "native/policy/native_item_catalog.h"

#include "native/policy/native_visibility_policy.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace tavrin {

void NativeItemCatalog::merge(std::span<const MenuBarItemSnapshot> scanned) {
    for (const auto& item : scanned) {
        const auto [known, isNew] = items_.try_emplace(item.id, item);
        if (!isNew && item.frame.width > 0) known->second = item;
    }
}

void NativeItemCatalog::retain(const std::set<ProcessIdentifier>& running) {
    std::erase_if(items_,
                  [&](const auto& entry) { return !running.contains(entry.second.processIdentifier); });
}

void NativeItemCatalog::recordWidths(std::span<const MenuBarItemSnapshot> scanned) {
    for (const auto& item : scanned)
        if (item.frame.width > 0) widths_[item.id] = item.frame.width;
}

NativeExpandedRescueLatch::Measures NativeItemCatalog::measures() const {
    NativeExpandedRescueLatch::Measures measures{{}, widths_};
    for (const auto& [identifier, item] : items_)
        measures.itemsOfUnits[NativeVisibilityPolicy::unitOf(identifier)].insert(identifier);
    return measures;
}

std::vector<std::string> NativeItemCatalog::releaseOrder(const std::set<std::string>& units) const {
    std::map<std::string, double> leftEdges;
    for (const auto& [identifier, item] : items_) {
        if (item.frame.width <= 0) continue;
        const auto [edge, isFirst] =
            leftEdges.try_emplace(NativeVisibilityPolicy::unitOf(identifier), item.frame.minX());
        if (!isFirst) edge->second = std::min(edge->second, item.frame.minX());
    }
    std::vector<std::string> order(units.begin(), units.end());
    std::ranges::stable_sort(order, std::ranges::greater(), [&](const std::string& unit) {
        const auto edge = leftEdges.find(unit);
        return edge == leftEdges.end() ? -std::numeric_limits<double>::infinity() : edge->second;
    });
    return order;
}

} // namespace tavrin
