#pragma once

#include "concurrency/signal.h"
#include "concurrency/virtual_scheduler.h"
#include "menu_bar/status_item_record.h"
#include "menu_bar/stored_positions.h"
#include "preferences/preferences_store.h"
#include "system/faults.h"
#include "system/process_table.h"
#include "system/program_connection.h"
#include "system/screens_model.h"
#include "system/world_calls.h"

#include <expected>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace mac_model {

enum class BehindNotch {
    No,
    PresentItems, // until they are created anew
    AllItems,     // also those that the bundle creates later
};

enum class PutDown { There, WhereItWas };

/// The right part of the menu bar: the status items of all processes and their places. A change shows after
/// `arrangingTime`, several together; until then the old frames stand. Frames are on the primary screen.
class StatusArea {
  public:
    static constexpr tavrin::Seconds arrangingTime{0.02};
    static constexpr tavrin::Seconds occlusionLag{0.05};
    static constexpr tavrin::Seconds slidingTime{0.2}; // of an item that was put down
    static constexpr double squareWidth = 26;

    StatusArea(tavrin::VirtualScheduler&, ProcessTable&, ScreensModel&, PreferencesStore&, MacOSVersion,
               const Uncertainties&, const Faults&);
    StatusArea(const StatusArea&) = delete;
    StatusArea& operator=(const StatusArea&) = delete;

    /// Every item, in the order of creation.
    std::vector<const StatusItemRecord*> items() const;
    std::vector<const StatusItemRecord*> itemsOf(tavrin::ProcessIdentifier) const;
    /// Those with a frame, from left to right.
    std::vector<const StatusItemRecord*> fromLeftToRight() const;
    /// Null when there is none; else it holds until the item is removed.
    const StatusItemRecord* find(StatusItemIdentifier) const;

    /// The item drawn at a point of any screen's menu bar; null where none is or the notch covers it.
    const StatusItemRecord* itemAt(tavrin::Point) const;
    /// Where the item is on that screen's menu bar; none when it has no frame.
    std::optional<tavrin::Rect> frameOn(const ScreenSpec&, const StatusItemRecord&) const;
    /// What Accessibility says of its place; the place of an item pushed off the screen is uncertain.
    tavrin::Rect accessibilityFrame(const StatusItemRecord&) const;

    /// Marks the item's menu, popover or panel as open or closed.
    void setOpen(StatusItemIdentifier, bool isOpen);
    /// Sends a press to the program that owns the item; false for items of other processes.
    bool press(StatusItemIdentifier, tavrin::StatusItemPress);

    /// Takes an item to move it, as with Command held; false when macOS doesn't let it be moved. From then on
    /// it follows `carryTo`, and items make room for it. It is put back when it is removed or the displays
    /// change.
    bool pickUp(StatusItemIdentifier);
    /// `x` is its left edge on the primary screen. It changes places with a neighbour over whose middle it
    /// has come; items that macOS holds in place are never passed.
    void carryTo(double x);
    /// Leaves it where it is, and stores its new place, or sends it back. It stands there after
    /// `slidingTime`.
    void putDown(PutDown);

    /// What the person does: drags every item of the bundle off the menu bar.
    std::expected<void, std::string> removeItems(std::string_view bundleIdentifier);
    std::expected<void, std::string> setBehindNotch(std::string_view bundleIdentifier, BehindNotch);
    /// Arranges anew, because something that bears on it has changed.
    void refresh();

    /// After the items were arranged, or one looks or opens differently.
    tavrin::Signal<> onChanged;

    // For the program's items. Positions and visibility are kept in `domain` under the item's name.

    StatusItemIdentifier add(std::shared_ptr<ProgramConnection>, tavrin::DefaultsDomain domain,
                             double length);
    /// Removes the item from the menu bar; macOS may forget its position with that.
    void remove(StatusItemIdentifier);
    void setLength(StatusItemIdentifier, double length);
    void setAutosaveName(StatusItemIdentifier, std::string name);
    void setVisible(StatusItemIdentifier, bool visible);
    void setAppearance(StatusItemIdentifier, ItemAppearance);
    void setTexts(StatusItemIdentifier, std::string label, std::string toolTip);
    void setHiddenFromAccessibility(StatusItemIdentifier, bool hidden);
    void setAction(StatusItemIdentifier, std::function<void(tavrin::StatusItemPress)>);
    /// Whether the item's own process sees it drawn.
    bool isDrawnForOwner(StatusItemIdentifier) const;
    /// What macOS keeps when the program quits in order: the place of each named item that had none.
    void storePositions(tavrin::ProcessIdentifier);

  private:
    /// An item on its way, and the run as it is meanwhile.
    struct Carried {
        StatusItemIdentifier identifier{};
        double x = 0;
        bool wasBehindNotch = false;
        std::vector<StatusItemIdentifier> before; // from right to left
        std::vector<StatusItemIdentifier> order;
    };

    struct ProgramItem {
        std::shared_ptr<ProgramConnection> connection;
        tavrin::DefaultsDomain domain;
    };

    void addItemsOf(tavrin::ProcessIdentifier);
    void removeItemsOf(tavrin::ProcessIdentifier);
    void hide(StatusItemRecord&);
    void forgetPosition(StatusItemRecord&);
    tavrin::DefaultsDomain domainOf(const StatusItemRecord&) const;
    StatusItemRecord* change(StatusItemIdentifier);
    void arrange();
    std::vector<StatusItemIdentifier> run() const;
    bool isMovable(const StatusItemRecord&) const;
    bool isDragLost();
    void putBack(StatusItemIdentifier);
    void returnBehindNotch(StatusItemRecord&, bool wasBehindNotch, PutDown) const;
    void changePlaces(Carried&) const;
    void storeNewPlace(const std::vector<StatusItemIdentifier>& order, StatusItemIdentifier moved);
    std::optional<double> rankOf(StatusItemIdentifier) const;
    double positionFor(const StatusItemRecord&, double above) const;
    bool hasPosition(const StatusItemRecord&) const;
    std::vector<PlacedItem> places() const;
    LayoutItem layoutItem(const StatusItemRecord&) const;
    double positionToStore(const StatusItemRecord&) const;

    tavrin::VirtualScheduler& scheduler_;
    WorldCalls world_;
    ProcessTable& processes_;
    ScreensModel& screens_;
    StoredPositions stored_;
    MacOSVersion version_;
    const Uncertainties& uncertainties_;
    const Faults& faults_;

    std::map<StatusItemIdentifier, StatusItemRecord> records_; // identifiers ascend with creation
    std::map<StatusItemIdentifier, ProgramItem> programItems_;
    std::set<std::string, std::less<>> behindNotch_; // bundles
    std::uint64_t nextIdentifier_ = 1;
    bool isArranging_ = false;
    std::optional<Carried> carried_;
    int dragsSeen_ = 0;                         // since some are lost
    std::optional<tavrin::Seconds> arrangedAt_; // when an item last moved
    std::vector<tavrin::Subscription> subscriptions_;
};

} // namespace mac_model
