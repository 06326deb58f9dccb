#pragma once

#include "concurrency/waits.h"
#include "platform/accessibility.h"

#include <expected>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin {

/// What one message tells about an element of a menu bar.
struct MenuBarElement {
    AccessibilityElement element;
    std::string role;
    std::optional<std::string> rawIdentifier;
    std::optional<std::string> title;
    std::optional<std::string> description;
    std::optional<std::string> help;
    std::optional<Point> position;
    std::optional<Size> size;

    /// The frame as reported, and an empty one when any of it is missing.
    Rect frame() const;
};

/// Reads the status items of one application with one message an element, so that a hung application costs
/// one time-out: the first message that cannot be completed ends the reading. Off the main thread.
class ApplicationReader {
  public:
    enum class Failure {
        TimedOut,  // the application does not answer
        Denied,    // this process may not use Accessibility
        Abandoned, // nobody waits for the result any more
    };

    /// Bounds of the walk, so that a broken or hostile tree ends.
    static constexpr int depthMax = 12;
    static constexpr std::size_t visitedMax = 512;
    static constexpr std::size_t itemsBeyondWhichToStop = 127;

    ApplicationReader(Accessibility& accessibility, Seconds messagingTimeout, AbandonFlag abandoned);

    /// The elements of the status items in the order of the tree; empty when the application has none. The
    /// result is whole or a failure, since items are told apart by their index among all of them.
    std::expected<std::vector<MenuBarElement>, Failure> readItems(ProcessIdentifier process,
                                                                  std::string_view bundleIdentifier) const;

  private:
    struct Visit {
        MenuBarElement element;
        std::vector<AccessibilityElement> children;
    };

    struct Pending {
        AccessibilityElement element;
        int depth;
    };

    using BarResult = std::expected<std::optional<AccessibilityElement>, Failure>;

    BarResult findBar(ProcessIdentifier process, std::string_view bundleIdentifier) const;
    BarResult readBar(const AccessibilityElement& application, std::string_view attribute) const;
    std::expected<std::vector<MenuBarElement>, Failure> walk(const AccessibilityElement& bar) const;
    std::expected<std::optional<Visit>, Failure> visit(const AccessibilityElement& element) const;
    static void pushChildren(std::vector<Pending>& stack, const Visit& parent, int depth,
                             std::size_t visitedCount);

    Accessibility& accessibility_;
    Seconds timeout_;
    AbandonFlag abandoned_;
};

} // namespace tavrin
