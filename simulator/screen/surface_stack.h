#pragma once

#include "concurrency/signal.h"
#include "screen/surface.h"
#include "vocabulary/vocabulary.h"

#include <memory>
#include <vector>

namespace mac_model {

/// All surfaces on the screen, from back to front, and which of them is key. Pointers hold until the surface
/// is removed.
class SurfaceStack {
  public:
    using Surfaces = std::vector<std::unique_ptr<Surface>>;

    /// Puts it in front of its level.
    Surface& add(Surface);
    Surface* find(SurfaceIdentifier);

    const Surfaces& backToFront() const { return surfaces_; }

    /// The front-most surface at a point, no Drag; null where the desktop or the menu bar is.
    Surface* at(Point) const;

    /// Its owner closes it: nobody is told. Unknown surfaces are fine.
    void remove(SurfaceIdentifier);
    /// Anyone else closes it: `onDismissed` is called.
    void dismiss(SurfaceIdentifier);
    void dismissAllOf(ProcessIdentifier owner);
    /// Dismisses the surfaces that close on a press at this point, front-most first, and returns the status
    /// items that these surfaces belonged to.
    std::vector<StatusItemIdentifier> dismissForPressAt(Point);

    void raise(SurfaceIdentifier);
    /// When the key surface goes away, the one that was key before it takes its place.
    void makeKey(SurfaceIdentifier);
    /// None while the windows that could be key belong to applications that aren't active; panels can be
    /// key without that.
    Surface* key() const;
    /// The front-most alert of the process, which keeps presses and keys from what else the process shows;
    /// null when there is none.
    Surface* alertOf(ProcessIdentifier owner) const;
    /// The alert that keeps them from this surface; null for menus, which track by themselves.
    Surface* alertBefore(const Surface&) const;
    void setActive(ProcessIdentifier);

    Signal<> onKeyChanged; // another surface is key, or none

    /// Moves the surface and all in it.
    static void moveBy(Surface&, double dx, double dy);

  private:
    Surfaces::const_iterator positionOf(SurfaceIdentifier) const;
    std::unique_ptr<Surface> take(SurfaceIdentifier);
    void insert(std::unique_ptr<Surface>);
    bool canBeKey(const Surface&) const;
    void noteKeyChange();
    void hasGone(Surface*);

    Surfaces surfaces_;
    std::vector<SurfaceIdentifier> keyHistory_; // the one that was made key last comes last
    SurfaceIdentifier key_{};                   // as last noted
    ProcessIdentifier active_ = 0;
    std::uint64_t nextIdentifier_ = 1;
};

} // namespace mac_model
