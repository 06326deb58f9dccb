#pragma once

#include "accessibility/attributes.h"
#include "concurrency/waits.h"
#include "pins/menus/pinned_menu_node.h"
#include "platform/accessibility.h"

#include <cstddef>
#include <expected>
#include <functional>
#include <vector>

namespace tavrin {

/// Reads one menu, whole or the branch toward something, with at most three messages an element. Each reading
/// has the limits for itself and goes depth first, so that what stands behind an item takes nothing from what
/// is below it. The first message that an application doesn't answer ends the reading. On a background queue.
class MenuTreeReader {
  public:
    struct Limits {
        int maximumDepth = 0; // the element asked for has depth 0
        int maximumNodes = 0;
    };

    static constexpr Limits statusItemLimits{6, 600};
    static constexpr Limits appMenuBarLimits{8, 1500};

    MenuTreeReader(Accessibility& accessibility, Limits limits)
        : accessibility_(accessibility)
        , limits_(limits) {}

    template <class T>
    using Result = std::expected<T, ReadFailure>;

    /// The elements in the order in which they were read; nodes name them by the index. Some may refer to
    /// what is gone by now.
    const std::vector<AccessibilityElement>& elements() const { return elements_; }

    const AccessibilityElement& elementOf(const PinnedMenuNode& node) const {
        return elements_[node.elementIndex];
    }

    /// The element with all below it, as far as the limits allow; what lies beyond is left out.
    Result<PinnedMenuNode> tree(const AccessibilityElement& root, const AbandonFlag& abandoned);

    /// The element alone.
    Result<PinnedMenuNode> root(const AccessibilityElement& root, const AbandonFlag& abandoned);

    /// Whether the reading goes on below an item; the level counts items from where it began, which is 0.
    using Leads = std::function<bool(const PinnedMenuNode& item, std::size_t level)>;

    /// Fills the children of a node that was read before, far enough for `items` to have all there are, and
    /// those of the items that lead on.
    Result<void> readItems(PinnedMenuNode& parent, const Leads& leads, const AbandonFlag& abandoned);

    /// Whether the limit of depth lets items below this node be read.
    bool isDescendable(const PinnedMenuNode& node) const;

    /// Whether there are items below the node now; reads none of them.
    Result<bool> hasItems(const PinnedMenuNode& node) const;

  private:
    enum class Reach { Alone, Subtree };

    Result<PinnedMenuNode> node(const AccessibilityElement& element, int depth, Reach reach,
                                const AbandonFlag& abandoned);
    Result<void> readBelow(PinnedMenuNode& parent, const Leads& leads, std::size_t level,
                           const AbandonFlag& abandoned);
    Result<AccessibilityElements> childrenOf(const AccessibilityElement& element) const;

    Accessibility& accessibility_;
    Limits limits_;
    int budget_ = 0; // nodes that this reading may still read
    std::vector<AccessibilityElement> elements_;
    std::vector<int> depths_; // of the elements
};

} // namespace tavrin
