#pragma once

#include "accessibility/attributes.h"
#include "concurrency/waits.h"
#include "pins/menus/pinned_menu_node.h"
#include "platform/accessibility.h"

#include <cstddef>
#include <expected>
#include <vector>

namespace tavrin {

/// Reads one menu, whole or a level at a time, with at most three messages an element. The first message that
/// an application doesn't answer ends the reading. On a background queue.
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
        , limits_(limits)
        , budget_(limits.maximumNodes) {}

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

    /// Fills the children of a node that was read alone, far enough for `items` to have all there are.
    Result<void> readItems(PinnedMenuNode& parent, const AbandonFlag& abandoned);

    /// Whether the limit of depth lets items below this node be read.
    bool isDescendable(const PinnedMenuNode& node) const;

    /// Whether there are items below the node now; reads none of them.
    Result<bool> hasItems(const PinnedMenuNode& node) const;

  private:
    enum class Reach { Alone, Subtree };

    Result<PinnedMenuNode> node(const AccessibilityElement& element, int depth, Reach reach,
                                const AbandonFlag& abandoned);
    Result<AccessibilityElements> childrenOf(const AccessibilityElement& element) const;

    Accessibility& accessibility_;
    Limits limits_;
    int budget_; // nodes that may still be read
    std::vector<AccessibilityElement> elements_;
    std::vector<int> depths_; // of the elements
};

} // namespace tavrin
