#pragma once

#include "desktop/desktop_file.h"
#include "menu_bar/status_item_record.h"
#include "preferences/preferences_store.h"
#include "vocabulary/vocabulary.h"

#include <string>
#include <string_view>

namespace mac_model {

/// What macOS keeps about status items in their owner's preferences, under their autosave names. It is read
/// when an item is created or named; editing it for a living item does nothing. Each key has a second form
/// for this computer alone in ".GlobalPreferences", which counts where the first is missing.
class StoredPlaces {
  public:
    /// Where the position of one item is kept.
    struct Place {
        DefaultsDomain domain;
        std::string name;
    };

    StoredPlaces(PreferencesStore& preferences, MacOSVersion version)
        : preferences_(preferences)
        , version_(version) {}

    /// Takes over what is stored of the item's visibility.
    void readVisibility(StatusItemRecord&, const DefaultsDomain&) const;
    void setVisible(const StatusItemRecord&, const DefaultsDomain&, bool visible);
    /// None when none is stored.
    std::optional<double> position(const Place&) const;
    /// Nothing is stored without a name.
    void setPosition(const Place&, double position);
    void removePosition(const Place&);

    /// The name in keys of the second form: what follows the first "_" begins with a small letter, and "_v6".
    static std::string byHostName(std::string_view name);

  private:
    std::optional<DefaultsValue> value(std::string_view prefix, const std::string& name,
                                       const DefaultsDomain&) const;

    PreferencesStore& preferences_;
    MacOSVersion version_;
};

} // namespace mac_model
