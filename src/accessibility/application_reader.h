#pragma once

#include "accessibility/element_walk.h"
#include "concurrency/waits.h"
#include "platform/accessibility.h"

#include <expected>
#include <optional>
#include <string_view>
#include <vector>

namespace tavrin {

/// Reads the status items of one application with one message an element, so that a hung application costs
/// one time-out: the first message that cannot be completed ends the reading. Off the main thread.
class ApplicationReader {
  public:
    /// Where an application's status items are looked for. Some of Apple's have them in their only menu bar;
    /// in that of a regular application titles stand, of which only the subrole tells an item.
    enum class Bars { Extras, ExtrasElseMenuBar, ExtrasElseExtrasInMenuBar };

    /// One more bound of the walk, so that a broken or hostile tree ends.
    static constexpr std::size_t itemsBeyondWhichToStop = 127;

    ApplicationReader(Accessibility& accessibility, Seconds messagingTimeout, AbandonFlag abandoned);

    /// The elements of the status items in the order of the tree; empty when the application has none. The
    /// result is whole or a failure, since items are told apart by their index among all of them.
    std::expected<std::vector<MenuBarElement>, ReadFailure> readItems(ProcessIdentifier process,
                                                                      Bars bars) const;

  private:
    /// Which elements of a bar are status items.
    enum class ItemsOfBar { All, MenuExtras };

    using BarResult = std::expected<std::optional<AccessibilityElement>, ReadFailure>;

    using Items = std::expected<std::vector<MenuBarElement>, ReadFailure>;

    class Collector;

    BarResult readBar(const AccessibilityElement& application, std::string_view attribute) const;
    Items itemsIn(const BarResult& bar, ItemsOfBar wanted) const;

    Accessibility& accessibility_;
    Seconds timeout_;
    AbandonFlag abandoned_;
};

} // namespace tavrin
