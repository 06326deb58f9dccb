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
    StoredPlaces(PreferencesStore& preferences, MacOSVersion version)
        : preferences_(preferences)
        , version_(version) {}

    /// Takes over position and visibility; what isn't stored stays as it is.
    void read(StatusItemRecord&, const DefaultsDomain&) const;
    void setVisible(const StatusItemRecord&, const DefaultsDomain&, bool visible);
    void setPosition(const StatusItemRecord&, const DefaultsDomain&, double position);
    void removePosition(const StatusItemRecord&, const DefaultsDomain&);

    /// The name in keys of the second form: what follows the first "_" begins with a small letter, and "_v6".
    static std::string byHostName(std::string_view name);

  private:
    std::optional<DefaultsValue> value(std::string_view prefix, const std::string& name,
                                       const DefaultsDomain&) const;

    PreferencesStore& preferences_;
    MacOSVersion version_;
};

} // namespace mac_model
