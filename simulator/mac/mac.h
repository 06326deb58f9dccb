#pragma once

#include "accessibility/accessibility_server.h"
#include "accessibility/open_menu.h"
#include "accessibility/permission.h"
#include "concurrency/virtual_scheduler.h"
#include "desktop/desktop_file.h"
#include "input/event_server.h"
#include "input/hot_key_center.h"
#include "input/keyboard_model.h"
#include "menu_bar/status_area.h"
#include "platform/randomness.h"
#include "platform/text.h"
#include "platform/window_server.h"
#include "preferences/preferences_store.h"
#include "seam/program_host.h"
#include "system/faults.h"
#include "system/process_table.h"
#include "system/screens_model.h"
#include "system/updater_model.h"
#include "system/workspace_model.h"

#include <cstdint>
#include <expected>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace mac_model {

struct MacOptions {
    DesktopFile desktop;
    std::optional<std::filesystem::path> profile; // nothing outlives the Mac without one
    std::uint64_t seed = 0;                       // other than 0: durations vary, alike for the same seed
    ProgramInfo program;
};

struct MacStatistics {
    std::map<std::string, std::uint64_t> messages; // Accessibility messages, by receiver
    std::size_t timersPending = 0;                 // the program's, on its main thread
    std::size_t tasksAlive = 0;
    tavrin::Seconds virtualTime{0};
};

/// A whole modelled Mac with one program on it. Everything happens on the scheduler's virtual time; changes
/// of the world are seen at once by the model and reach the program as they would on macOS. Main thread.
class Mac {
  public:
    /// The error is one sentence for the user: the profile can't be used.
    static std::expected<std::unique_ptr<Mac>, std::string> create(tavrin::VirtualScheduler&, MacOptions);

    Mac(const Mac&) = delete;
    Mac& operator=(const Mac&) = delete;
    /// Ends the program first; run the scheduler beforehand to see it quit in order.
    ~Mac();

    tavrin::VirtualScheduler& scheduler() { return scheduler_; }

    const DesktopFile& desktop() const { return desktop_; } // as it was at the start

    MacOSVersion version() const { return desktop_.macOS; }

    ScreensModel& screens() { return *screens_; }

    ProcessTable& processes() { return *processes_; }

    PreferencesStore& preferences() { return *preferences_; }

    StatusArea& statusArea() { return *statusArea_; }

    Permission& permission() { return *permission_; }

    AccessibilityServer& accessibility() { return *accessibility_; }

    EventServer& eventServer() { return *eventServer_; }

    KeyboardModel& keyboard() { return keyboard_; }

    HotKeyCenter& hotKeys() { return hotKeys_; }

    WorkspaceModel& workspace() { return *workspace_; }

    tavrin::Text& text() { return *text_; }

    tavrin::Randomness& randomness() { return *randomness_; }

    UpdaterModel* updater() { return updater_.get(); } // null when none is bundled

    ProgramHost& program() { return *program_; }

    /// Set by who draws menus.
    std::optional<OpenMenu> openMenu;

    /// The windows of what is on the screen beside the menu bar, from front to back. Set by who draws it.
    std::function<std::vector<tavrin::OnScreenWindow>()> surfaceWindows;

    Faults& faults() { return faults_; }

    const Uncertainties& uncertainties() const { return uncertainties_; }

    /// Takes effect at once, as if macOS had always been so.
    void setUncertainties(const Uncertainties&);

    /// Quits the processes of a bundle; the program is asked, as macOS does.
    std::expected<void, std::string> quit(std::string_view bundleIdentifier);

    /// Where the program keeps its preferences.
    tavrin::DefaultsDomain programDomain() const { return {program_->info().bundleIdentifier}; }

    MacStatistics statistics() const;

  private:
    Mac(tavrin::VirtualScheduler&, MacOptions, std::unique_ptr<PreferencesStore>);

    tavrin::VirtualScheduler& scheduler_;
    DesktopFile desktop_;
    Uncertainties uncertainties_;
    Faults faults_;
    KeyboardModel keyboard_;
    HotKeyCenter hotKeys_;
    std::unique_ptr<PreferencesStore> preferences_;
    std::unique_ptr<ScreensModel> screens_;
    std::unique_ptr<ProcessTable> processes_;
    std::unique_ptr<StatusArea> statusArea_;
    std::unique_ptr<Permission> permission_;
    std::unique_ptr<AccessibilityServer> accessibility_;
    std::unique_ptr<EventServer> eventServer_;
    std::unique_ptr<WorkspaceModel> workspace_;
    std::unique_ptr<tavrin::Text> text_;
    std::unique_ptr<tavrin::Randomness> randomness_;
    std::unique_ptr<UpdaterModel> updater_;
    std::unique_ptr<ProgramHost> program_;
};

} // namespace mac_model
