#pragma once

#include "concurrency/signal.h"
#include "concurrency/virtual_scheduler.h"
#include "preferences/preferences_store.h"
#include "system/world_calls.h"
#include "vocabulary/vocabulary.h"

#include <string>

namespace mac_model {

/// The program's entry in the list of applications that may use Accessibility. The profile keeps the choice.
class Permission {
  public:
    static constexpr Seconds noticeDelay{0.1};
    static constexpr Seconds staleTime{0.8};

    /// What a profile without an entry for the program stands for.
    enum class AtFirst { Unlisted, Denied, Trusted };

    Permission(VirtualScheduler&, PreferencesStore&, const Uncertainties&,
               const std::string& bundleIdentifier, AtFirst atFirst);

    /// Whether System Settings has a switch for the program: not before it has asked to be trusted.
    bool isListed() const;
    /// The program asks, and gets its switch, which is off.
    void list();

    /// The state of the switch in System Settings, which messages obey.
    bool isTrusted() const;
    /// The answer to a process that asks; it may lag behind.
    bool isTrustedAsTold() const;

    /// Whether the program had the permission since its process began, and lost it.
    bool wasRevoked() const { return wasRevoked_; }

    /// The person presses the switch. Programs hear of it after `noticeDelay`.
    void setTrusted(bool);
    /// The entry of some other application changes, which programs hear of as well.
    void changeOtherEntry();

    void programStarted() { wasRevoked_ = false; }

    Signal<> onChanged; // of the switch, or there is one now; at once, for System Settings
    Signal<> onNotice;  // for programs

  private:
    VirtualScheduler& scheduler_;
    WorldCalls world_;
    PreferencesStore& preferences_;
    const Uncertainties& uncertainties_;
    std::string key_;
    AtFirst atFirst_;
    bool wasRevoked_ = false;
    bool toldWhileStale_ = false;
    Seconds staleUntil_{-1};
};

} // namespace mac_model
