#pragma once

#include "accessibility/attributes.h"
#include "concurrency/waits.h"
#include "platform/accessibility.h"

#include <expected>
#include <optional>
#include <string>
#include <string_view>
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

/// Reads the status items of one application with one message an element, so that a hung application costs
/// one time-out: the first message that cannot be completed ends the reading. Off the main thread.
class ApplicationReader {
  public:
    /// Where an application's status items are looked for. Some of Apple's have them in their only menu bar;
    /// in that of a regular application titles stand, of which only the subrole tells an item.
    enum class Bars { Extras, ExtrasElseMenuBar, ExtrasElseExtrasInMenuBar };

    /// Bounds of the walk, so that a broken or hostile tree ends.
    static constexpr int depthMax = 12;
    static constexpr std::size_t visitedMax = 512;
    static constexpr std::size_t itemsBeyondWhichToStop = 127;

    ApplicationReader(Accessibility& accessibility, Seconds messagingTimeout, AbandonFlag abandoned);

    /// The elements of the status items in the order of the tree; empty when the application has none. The
    /// result is whole or a failure, since items are told apart by their index among all of them.
    std::expected<std::vector<MenuBarElement>, ReadFailure> readItems(ProcessIdentifier process,
                                                                      Bars bars) const;

  private:
    struct Visit {
        MenuBarElement element;
        bool isMenuExtra;
        AccessibilityElements children;
    };

    struct Pending {
        AccessibilityElement element;
        int depth;
    };

    /// Which elements of a bar are status items.
    enum class ItemsOfBar { All, MenuExtras };

    using BarResult = std::expected<std::optional<AccessibilityElement>, ReadFailure>;

    using Items = std::expected<std::vector<MenuBarElement>, ReadFailure>;

    BarResult readBar(const AccessibilityElement& application, std::string_view attribute) const;
    Items itemsIn(const BarResult& bar, ItemsOfBar wanted) const;
    Items walk(const AccessibilityElement& bar, ItemsOfBar wanted) const;
    std::expected<Visit, ReadFailure> visit(const AccessibilityElement& element) const;
    static void pushChildren(std::vector<Pending>& stack, const Visit& parent, int depth,
                             std::size_t visitedCount);

    Accessibility& accessibility_;
    Seconds timeout_;
    AbandonFlag abandoned_;
};

} // namespace tavrin
