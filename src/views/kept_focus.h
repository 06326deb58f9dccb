#pragma once

#include "views/focus.h"

#include <optional>
#include <string>
#include <utility>

namespace tavrin {

/// Where the focus belongs while trees come and go. It belongs to the view to which a person or the program
/// has moved it: to a row with an identity wherever the row stands in its list, to a control with one
/// wherever that stands, to another view at its place. It stands there or nearest to it, and goes back when
/// that place takes it again. A row that takes the focus from one that has left the list keeps it.
class KeptFocus {
  public:
    void moveTo(ViewPath path) { belongsAt_ = standsAt_ = spotAt(std::move(path)); }

    void clear() { belongsAt_ = standsAt_ = std::nullopt; }

    /// The renderer sees the focus there, or nowhere. That it stands where `settleIn` put it is no news.
    void seenAt(std::optional<ViewPath> path);

    /// Finds its place in a new tree.
    std::optional<ViewPath> settleIn(FocusPlaces);

    std::optional<ViewPath> standsAt() const;

  private:
    /// A row, to be found again in the same list and nowhere else: in another list its keys do something
    /// else.
    struct Row {
        std::string identity;
        ViewPath list;   // from the Scroll around it, above which other views come and go
        ViewPath inside; // from the row to the view that has the focus
    };

    struct Spot {
        ViewPath path;
        std::optional<Row> row{}; // that it is, or stands in
        std::string control{};    // the identity of the control that it is
    };

    Spot spotAt(ViewPath) const;
    const FocusPlace* controlOf(const Spot&) const;
    ViewPath pathOf(const Spot&) const;
    std::optional<ViewPath> found(const Spot&) const;
    std::optional<ViewPath> found(const Row&) const;

    FocusPlaces places_; // of the newest tree
    std::optional<Spot> belongsAt_;
    std::optional<Spot> standsAt_;
};

} // namespace tavrin
