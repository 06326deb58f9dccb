#pragma once

#include "concurrency/signal.h"
#include "concurrency/virtual_scheduler.h"
#include "platform/application.h"
#include "platform/platform.h"
#include "seam/system/program_side.h"
#include "system/world_calls.h"
#include "vocabulary/vocabulary.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace mac_model {

/// Builds the program over the given Mac. Called anew for each launch.
using ProgramFactory = std::function<std::unique_ptr<tavrin::ApplicationDelegate>(tavrin::Platform&)>;

/// Whether a process has a window on the screen.
bool hasWindow(const SurfaceStack&, ProcessIdentifier);

/// Launches the program, asks it to quit and ends its process. Calls into the program are posted to the main
/// thread: let the scheduler run to see them happen. The end of a process disconnects it at once; the
/// program's objects are destroyed when the main loop turns, so that the end may come from anywhere.
class ProgramHost {
  public:
    explicit ProgramHost(const MacServices&);
    ProgramHost(const ProgramHost&) = delete;
    ProgramHost& operator=(const ProgramHost&) = delete;
    ~ProgramHost();

    /// Before the first `start`. The presentation must outlive the host.
    void install(ProgramFactory, tavrin::Presentation&);

    bool isRunning() const { return life_ != nullptr; }

    /// Launches the program; while it runs, tells it that it was launched again.
    void start();
    /// Asks it to quit, each time anew; it may put the end off.
    void terminate();
    void replyToShouldTerminate(bool terminates);
    /// Ends the process without a word to it.
    void crash();
    /// The last window has closed; the program may want to quit for that.
    void lastWindowClosed();

    /// Everything that the ended program left behind: jobs, timers of the main thread, objects of the
    /// platform. One sentence each; meaningful once the main loop has turned.
    std::vector<std::string> leftovers() const;

    Signal<> onStarted;
    Signal<> onActivated;    // the program has become the active application
    Signal<> onKeysReleased; // another surface is key, or a menu has opened or closed

  private:
    struct Life;
    enum class End { InOrder, Crash };

    void launch();
    void ask();
    void end(End);
    void noticeActivation();

    const MacServices& mac_;
    WorldCalls world_;
    ProgramFactory factory_;
    tavrin::Presentation* presentation_ = nullptr;
    std::shared_ptr<Life> life_;                // while the program runs
    std::vector<std::shared_ptr<Life>> ending_; // disconnected, to be destroyed when the main loop turns
    std::weak_ptr<ProgramConnection> lastConnection_;
    bool isReplyAwaited_ = false;
    bool isActive_ = false;
    std::vector<Subscription> subscriptions_;
};

} // namespace mac_model
