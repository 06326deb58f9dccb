#pragma once

#include "accessibility/attributes.h"
#include "concurrency/waits.h"
#include "platform/accessibility.h"

#include <cstddef>
#include <expected>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace tavrin {

/// The facts that one message tells about an element of a menu bar.
struct MenuBarElement {
    AccessibilityElement element;
    std::string role;
    std::optional<std::string> rawIdentifier;
    std::optional<std::string> title;
    std::optional<std::string> description;
    std::optional<std::string> help;
    std::optional<Rect> reportedFrame; // none when any of it is missing

    /// The frame as reported, else an empty one.
    Rect frame() const { return reportedFrame.value_or(Rect{}); }
};

/// Goes down a tree with one message an element. Every loop of it is bounded, so that a broken or hostile
/// tree ends. Off the main thread.
class ElementWalk {
  public:
    static constexpr int depthMax = 12;
    static constexpr std::size_t visitedMax = 512;

    struct Seen {
        MenuBarElement element;
        bool isMenuExtra = false;
        AccessibilityElements children;
        std::size_t root = 0; // the index of the one that it lies below
    };

    enum class Step { Into, Past, Stop }; // the element's children, or the whole walk

    /// Told of each element in the order of the tree.
    class Visitor {
      public:
        Visitor() = default;
        Visitor(const Visitor&) = delete;
        Visitor& operator=(const Visitor&) = delete;
        virtual ~Visitor() = default;

        virtual Step see(Seen seen) = 0;

        /// Whether the element can be passed without a message.
        virtual bool isPassed(const AccessibilityElement&, std::size_t) { return false; }

        /// Whether the walk goes on past an element whose message failed.
        virtual bool outlives(ReadFailure, const AccessibilityElement&, std::size_t) { return false; }
    };

    ElementWalk(Accessibility& accessibility, Seconds messagingTimeout, AbandonFlag abandoned)
        : accessibility_(accessibility)
        , timeout_(messagingTimeout)
        , abandoned_(std::move(abandoned)) {}

    /// The roots are elements of the walk themselves.
    std::expected<void, ReadFailure> run(std::span<const AccessibilityElement> roots, Visitor&) const;

  private:
    struct Pending {
        AccessibilityElement element;
        int depth = 0;
        std::size_t root = 0;
    };

    using Stack = std::vector<Pending>;

    std::expected<Seen, ReadFailure> look(const Pending&) const;
    static void push(const AccessibilityElements& children, const Pending& parent, std::size_t visitedCount,
                     Stack&);

    Accessibility& accessibility_;
    Seconds timeout_;
    AbandonFlag abandoned_;
};

} // namespace tavrin
