#pragma once

#include "concurrency/scheduler.h"
#include "concurrency/signal.h"
#include "desktop/desktop_file.h"
#include "platform/accessibility.h"
#include "vocabulary/vocabulary.h"

#include <expected>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mac_model {

/// How a process reacts when it is told to quit: it ends at once, or it is asked and decides.
enum class Quitting { AtOnce, AfterItsAnswer };

/// A running process. Policy, latency and whether it responds are its application's fields, as they are now.
struct Process {
    ProcessIdentifier identifier = 0;
    ApplicationSpec application;
    Quitting quitting = Quitting::AtOnce;
};

/// The processes with a connection to the window server. The truth, at once: the program hears of changes
/// through its workspace, when its main loop turns. Signals call directly. Pointers hold until the process
/// ends.
class ProcessTable {
  public:
    explicit ProcessTable(const std::vector<ApplicationSpec>& applications);

    /// In the order of their launch.
    std::vector<const Process*> processes() const;
    const Process* find(ProcessIdentifier) const;
    std::vector<ProcessIdentifier> withBundle(std::string_view bundleIdentifier) const;

    /// Gives a process identifier never used before when the application names none; refuses one in use. A
    /// regular application becomes the frontmost.
    std::expected<ProcessIdentifier, std::string> launch(ApplicationSpec, Quitting = Quitting::AtOnce);
    void end(ProcessIdentifier);

    // These act on every process of the bundle; the error is a sentence for the user.
    std::expected<void, std::string> quit(std::string_view bundleIdentifier);
    std::expected<void, std::string> hang(std::string_view bundleIdentifier);
    std::expected<void, std::string> resume(std::string_view bundleIdentifier);
    /// Time that each Accessibility message to the process takes.
    std::expected<void, std::string> setLatency(std::string_view bundleIdentifier, Seconds);

    void setPolicy(ProcessIdentifier, Policy);

    /// Makes it the frontmost process; nothing happens for background processes.
    void activate(ProcessIdentifier);
    /// Null when nothing is active.
    const Process* frontmost() const;
    /// The process whose menus the menu bar shows: the regular one that was active last.
    const Process* menuBarOwner() const;

    Signal<ProcessIdentifier> onLaunched;
    Signal<ProcessIdentifier> onEnded;          // it is no longer in the table
    Signal<ProcessIdentifier> onResumed;        // it responds again
    Signal<ProcessIdentifier> onToldToQuit;     // one that decides for itself
    Signal<ProcessIdentifier> onSettingsChosen; // in its own menu
    Signal<> onFrontChanged; // another process is active, or other menus are in the menu bar

  private:
    template <class Change>
    std::expected<void, std::string> forEach(std::string_view bundleIdentifier, const Change& change);

    std::vector<std::unique_ptr<Process>> inOrder_;
    std::map<ProcessIdentifier, Process*> byIdentifier_;
    std::vector<ProcessIdentifier> activations_; // each once, the most recent last
    ProcessIdentifier highest_ = 0;
};

} // namespace mac_model
