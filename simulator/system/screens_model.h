#pragma once

#include "concurrency/signal.h"
#include "concurrency/virtual_scheduler.h"
#include "desktop/desktop_file.h"
#include "system/faults.h"
#include "system/world_calls.h"
#include "vocabulary/vocabulary.h"

#include <cstdint>
#include <vector>

namespace mac_model {

/// The connected displays.
class ScreensModel {
  public:
    ScreensModel(VirtualScheduler&, std::vector<ScreenSpec>, const Faults&);

    /// The primary first; empty only while the displays are being rearranged.
    const std::vector<ScreenSpec>& screens() const { return screens_; }

    const ScreenSpec* primary() const { return screens_.empty() ? nullptr : &screens_.front(); }

    /// Attaches, removes and rearranges displays. Under `screensVanishBriefly` the list is empty for 0.2 s
    /// first.
    void set(std::vector<ScreenSpec>);

    Signal<> onChanged; // at once, for the rest of the Mac
    Signal<> onNotice;  // 0.05 s later, for programs

  private:
    void show(std::vector<ScreenSpec>);

    WorldCalls world_;
    std::vector<ScreenSpec> screens_;
    const Faults& faults_;
    std::uint64_t changes_ = 0;
};

} // namespace mac_model
