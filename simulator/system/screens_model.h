#pragma once

#include "concurrency/signal.h"
#include "concurrency/virtual_scheduler.h"
#include "desktop/desktop_file.h"
#include "system/faults.h"
#include "system/world_calls.h"
#include "vocabulary/vocabulary.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace mac_model {

/// What keeps the person from seeing the menu bar.
struct Unseen {
    bool isMenuBarHidden = false; // an application fills the screen, or the bar hides by itself
    bool isScreenLocked = false;
    bool isDisplayAsleep = false;

    bool operator==(const Unseen&) const = default;
};

/// The connected displays, and whether anything is to be seen on them.
class ScreensModel {
  public:
    ScreensModel(VirtualScheduler&, std::vector<ScreenSpec>, const Faults&);

    /// The primary first; empty only while the displays are being rearranged.
    const std::vector<ScreenSpec>& screens() const { return screens_; }

    const ScreenSpec* primary() const { return screens_.empty() ? nullptr : &screens_.front(); }

    /// The display where the person pressed last. Accessibility and the window server tell of its menu bar;
    /// the windows of a program's own items stay where they were. Null without displays.
    const ScreenSpec* active() const { return active_ < screens_.size() ? &screens_[active_] : primary(); }

    /// By its place among `screens`. Nobody is told, as macOS tells nobody.
    void setActive(std::size_t index) { active_ = index; }

    std::size_t activeIndex() const { return active_ < screens_.size() ? active_ : 0; }

    /// Where the frame, on the primary's menu bar, is on the active display's.
    Rect onActiveBar(Rect onPrimary) const;

    /// The place on the primary's menu bar that the point on any of them stands for.
    Point onPrimaryBar(Point) const;

    /// Attaches, removes and rearranges displays. Under `screensVanishBriefly` the list is empty for 0.2 s
    /// first.
    void set(std::vector<ScreenSpec>);

    void setUnseen(Unseen);

    const Unseen& unseen() const { return unseen_; }

    bool areShown() const { return !unseen_.isScreenLocked && !unseen_.isDisplayAsleep; }

    bool isMenuBarShown() const { return areShown() && !unseen_.isMenuBarHidden; }

    /// How much higher the menu bars stand than at their places: by their own height while they are hidden.
    double menuBarLift(const ScreenSpec& screen) const {
        return unseen_.isMenuBarHidden ? screen.menuBarHeight : 0;
    }

    Signal<> onChanged; // at once, for the rest of the Mac
    Signal<> onNotice;  // 0.05 s later, for programs
    Signal<> onUnseenChanged;
    Signal<> onShownNotice; // 0.05 s after a change of what is unseen but for the bar's own, for programs

  private:
    void show(std::vector<ScreenSpec>);

    WorldCalls world_;
    std::vector<ScreenSpec> screens_;
    std::size_t active_ = 0;
    Unseen unseen_;
    const Faults& faults_;
    std::uint64_t changes_ = 0;
};

} // namespace mac_model
