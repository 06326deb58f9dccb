#pragma once

#include "concurrency/signal.h"
#include "menu_bar/status_item_record.h"
#include "menu_bar/stored_places.h"
#include "preferences/preferences_store.h"
#include "system/behaviour.h"
#include "system/process_table.h"
#include "system/program_connection.h"
#include "vocabulary/vocabulary.h"

#include <expected>
#include <map>
#include <memory>
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

/// The status items of all processes: whose they are, what they say, and what macOS has stored about them.
/// `Arrangement` knows where they stand.
class StatusItemTable {
  public:
    StatusItemTable(ProcessTable&, PreferencesStore&, const Behaviour&);
    StatusItemTable(const StatusItemTable&) = delete;
    StatusItemTable& operator=(const StatusItemTable&) = delete;

    /// Every item, in the order of creation.
    std::vector<const StatusItemRecord*> items() const;
    std::vector<const StatusItemRecord*> itemsOf(ProcessIdentifier) const;
    /// The items with a frame, from left to right.
    std::vector<const StatusItemRecord*> fromLeftToRight() const;
    /// Null when there is none; else it holds until the item is removed.
    const StatusItemRecord* find(StatusItemIdentifier) const;

    /// The person presses the item at this point of any screen's menu bar.
    void notePress(StatusItemIdentifier, Point);
    /// Marks the item's menu, popover or panel as open or closed.
    void setOpen(StatusItemIdentifier, bool isOpen);
    /// Sends a press to the program that owns the item; false for items of other processes.
    bool press(StatusItemIdentifier, StatusItemPress);
    /// Has the program that owns the item do the action of that name; false when there is none.
    bool perform(StatusItemIdentifier, std::string_view action);

    /// The person drags every item of the bundle off the menu bar.
    std::expected<void, std::string> removeItems(std::string_view bundleIdentifier);
    std::expected<void, std::string> setBehindNotch(std::string_view bundleIdentifier, BehindNotch);
    /// The person's switch for the bundle in System Settings › Menu Bar, since macOS 26.
    std::expected<void, std::string> setAllowed(std::string_view bundleIdentifier, bool isAllowed);
    /// Whether no item of that owner's bundle ever stays in sight beside the notch.
    bool areAllBehindNotch(ProcessIdentifier owner) const;

    Signal<> onChanged;     // after the items were arranged, or one looks different, opened or closed
    Signal<> onPlacesStale; // something that affects their places has changed
    Signal<StatusItemIdentifier> onLeaving; // before it is removed or hidden

    // For the program's items. Positions and visibility are kept in `domain` under the item's name.

    StatusItemIdentifier add(std::shared_ptr<ProgramConnection>, DefaultsDomain domain, double length);
    /// Removes the item from the menu bar; macOS may forget its position with that.
    void remove(StatusItemIdentifier);
    void setLength(StatusItemIdentifier, double length);
    void setAutosaveName(StatusItemIdentifier, std::string name);
    void setVisible(StatusItemIdentifier, bool visible);
    void setAppearance(StatusItemIdentifier, ItemAppearance);
    void setTexts(StatusItemIdentifier, std::string label, std::string toolTip);
    void setSpokenValue(StatusItemIdentifier, std::string value);
    void setActions(StatusItemIdentifier, std::vector<tavrin::ViewAction>);
    void setHiddenFromAccessibility(StatusItemIdentifier, bool hidden);
    void setAction(StatusItemIdentifier, std::function<void(StatusItemPress)>);

    // For placing the items.

    StatusItemRecord* change(StatusItemIdentifier);
    /// Under the item's name, for the next launch.
    void storePosition(const StatusItemRecord&, double position);

  private:
    struct ProgramItem {
        std::shared_ptr<ProgramConnection> connection;
        DefaultsDomain domain;
    };

    void readStored(StatusItemRecord&) const;
    void addItemsOf(ProcessIdentifier);
    void removeItemsOf(ProcessIdentifier);
    StatusItemRecord recordFor(const Process& owner, const StatusItemSpec&);
    void hide(StatusItemRecord&);
    void forgetPosition(StatusItemRecord&);
    DefaultsDomain domainOf(const StatusItemRecord&) const;
    StoredPlaces::Place placeOf(const StatusItemRecord&) const;

    ProcessTable& processes_;
    StoredPlaces stored_;
    const Behaviour& behaviour_;
    std::map<StatusItemIdentifier, StatusItemRecord> records_; // identifiers ascend with creation
    std::map<StatusItemIdentifier, ProgramItem> programItems_;
    std::set<std::string, std::less<>> behindNotch_; // bundles
    std::set<std::string, std::less<>> disallowed_;  // bundles
    std::uint64_t nextIdentifier_ = 1;
    std::vector<Subscription> subscriptions_;
};

} // namespace mac_model
