#pragma once

#include "menu_bar/status_item_table.h"
#include "system/visibility_lists.h"
#include "vocabulary/vocabulary.h"

#include <cstddef>
#include <map>
#include <set>
#include <vector>

namespace mac_model {

/// Counts how often an item was drawn between two lists that both hide it: it was hidden when the second was
/// handed in, drawn before that came into force, and is hidden by it.
class FlashCount {
  public:
    FlashCount(StatusItemTable&, VisibilityLists&);
    FlashCount(const FlashCount&) = delete;
    FlashCount& operator=(const FlashCount&) = delete;

    std::size_t count() const { return count_; }

  private:
    using Items = std::set<StatusItemIdentifier>;

    struct Watched {
        Items hidden; // when the list was handed in
        Items drawn;  // of those, since then
    };

    void begin(VisibilityLists::Identifier);
    void look();
    void look(Watched&, bool isPending);

    const StatusItemTable& items_;
    const VisibilityLists& lists_;
    std::map<VisibilityLists::Identifier, Watched> watched_;
    std::size_t count_ = 0;
    std::vector<Subscription> subscriptions_;
};

} // namespace mac_model
