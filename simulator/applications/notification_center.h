#pragma once

#include "menu_bar/status_item_record.h"
#include "screen/surface_stack.h"
#include "system/behaviour.h"
#include "system/process_table.h"
#include "system/screens_model.h"
#include "system/visibility_lists.h"
#include "vocabulary/vocabulary.h"

namespace mac_model {

/// Notification Center, which a click on the clock opens since macOS 27 has the menu bar's agent. It has a
/// process of its own, without which it doesn't open. A click elsewhere closes it.
class NotificationCenter {
  public:
    NotificationCenter(const ProcessTable& processes, const ScreensModel& screens,
                       const VisibilityLists& visibility, SurfaceStack& stack, const Behaviour& behaviour)
        : processes_(processes)
        , screens_(screens)
        , visibility_(visibility)
        , stack_(stack)
        , behaviour_(behaviour) {}

    /// Whether the item opens it.
    bool isOpenedBy(const StatusItemRecord&) const;
    /// A press on the clock. While macOS withholds any item it does nothing.
    void toggle(const StatusItemRecord& clock);

    bool canOpen() const { return process() != nullptr; }

    void open(const StatusItemRecord* clock);
    void close();

  private:
    const Process* process() const;
    ScreenSpec screenOf(const StatusItemRecord*) const;

    const ProcessTable& processes_;
    const ScreensModel& screens_;
    const VisibilityLists& visibility_;
    SurfaceStack& stack_;
    const Behaviour& behaviour_;
    SurfaceIdentifier shown_{};
};

} // namespace mac_model
