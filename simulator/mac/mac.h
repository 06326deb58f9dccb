#pragma once

#include "accessibility/actions.h"
#include "accessibility/delivery.h"
#include "accessibility/menu_contents.h"
#include "accessibility/server.h"
#include "accessibility/tree.h"
#include "applications/access_prompt.h"
#include "applications/program_panels.h"
#include "applications/system_settings.h"
#include "concurrency/virtual_scheduler.h"
#include "desktop/desktop_file.h"
#include "input/event_numbers.h"
#include "input/hot_key_center.h"
#include "input/keyboard_model.h"
#include "input/person.h"
#include "input/synthetic_input.h"
#include "input/typing.h"
#include "input/window_input.h"
#include "mac/screen_content.h"
#include "menu_bar/arrangement.h"
#include "menu_bar/flash_count.h"
#include "menu_bar/item_drag.h"
#include "menu_bar/windows.h"
#include "preferences/preferences_store.h"
#include "privacy/login_items.h"
#include "privacy/permission.h"
#include "seam/program_presentation.h"
#include "seam/system/program_host.h"
#include "seam/system/program_side.h"
#include "system/behaviour.h"
#include "system/bundles_on_disk.h"
#include "system/visibility_lists.h"
#include "vocabulary/vocabulary.h"

#include <cstdint>
#include <expected>
#include <filesystem>
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
    std::size_t flashes = 0;       // see `FlashCount`
    std::uint64_t activations = 0; // of lists of what the menu bar may show
    Seconds virtualTime{0};
};

/// A whole modelled Mac with one program on it and a person in front of it. Everything happens on the
/// scheduler's virtual time; changes of the world are seen at once by the model and reach the program as they
/// would on macOS. Here its parts are put together; they know nothing of it. Main thread.
class Mac {
  public:
    /// The error is one sentence for the user: the profile can't be used.
    static std::expected<std::unique_ptr<Mac>, std::string> create(VirtualScheduler&, MacOptions);

    Mac(const Mac&) = delete;
    Mac& operator=(const Mac&) = delete;
    /// Ends the program first; run the scheduler beforehand to see it quit in order.
    ~Mac();

    VirtualScheduler& scheduler() { return scheduler_; }

    const DesktopFile& desktop() const { return desktop_; } // as it was at the start

    MacOSVersion version() const { return behaviour_.version; }

    ScreensModel& screens() { return screens_; }

    ProcessTable& processes() { return processes_; }

    PreferencesStore& preferences() { return *preferences_; }

    Permission& permission() { return permission_; }

    LoginItems& loginItems() { return loginItems_; }

    VisibilityLists& visibility() { return visibility_; }

    StatusItemTable& statusItems() { return statusItems_; }

    Arrangement& arrangement() { return arrangement_; }

    ScreenContent& content() { return content_; }

    KeyboardModel& keyboard() { return keyboard_; }

    HotKeyCenter& hotKeys() { return hotKeys_; }

    Person& person() { return person_; }

    tavrin::Text& text() { return *text_; }

    const UpdaterModel* updater() const { return updater_.get(); } // null when none is bundled

    const ProgramProcess& programProcess() const { return programProcess_; }

    ProgramProcess& programProcess() { return programProcess_; }

    ProgramHost& program() { return program_; }

    ProgramPresentation& presentation() { return presentation_; }

    Faults& faults() { return behaviour_.faults; }

    bool reducesMotion() const { return behaviour_.reducesMotion; }

    void setReducesMotion(bool reduces) { behaviour_.reducesMotion = reduces; }

    const Uncertainties& uncertainties() const { return behaviour_.uncertainties; }

    /// Takes effect at once, as if macOS had always been so.
    void setUncertainties(const Uncertainties&);

    /// Where the program keeps its preferences.
    DefaultsDomain programDomain() const { return {programProcess_.info().bundleIdentifier}; }

    MacStatistics statistics() const;

  private:
    Mac(VirtualScheduler&, MacOptions, std::unique_ptr<PreferencesStore>);

    PressTargets pressTargets();
    MacServices services();
    void connectParts();
    void processEnded(ProcessIdentifier);
    void followFrontProcess();
    void note(std::string type, std::string text = {});

    VirtualScheduler& scheduler_;
    DesktopFile desktop_;
    Behaviour behaviour_;
    std::unique_ptr<PreferencesStore> preferences_;
    ScreensModel screens_;
    ProcessTable processes_;
    ProgramProcess programProcess_;
    BundlesOnDisk bundles_;
    Permission permission_;
    LoginItems loginItems_;
    VisibilityLists visibility_;
    StatusItemTable statusItems_;
    Arrangement arrangement_;
    FlashCount flashes_;
    ItemDrag itemDrag_;
    MenuBarWindows menuBarWindows_;
    ScreenContent content_;
    OverflowMenu overflowMenu_;
    SystemSettings settings_;
    AccessPrompt accessPrompt_;
    ProgramPanels panels_;
    MenuContents menuContents_;
    AccessibilityTree accessibilityTree_;
    MessageDelivery messages_;
    AccessibilityActions actions_;
    AccessibilityServer accessibility_;
    KeyboardModel keyboard_;
    HotKeyCenter hotKeys_;
    Typing typing_;
    Person person_;
    EventNumbers eventNumbers_;
    WindowInput windowInput_;
    SyntheticInput input_;
    std::unique_ptr<tavrin::Text> text_;
    std::unique_ptr<tavrin::Randomness> randomness_;
    std::unique_ptr<UpdaterModel> updater_;
    MacServices services_;
    ProgramPresentation presentation_;
    ProgramHost program_;
    std::vector<Subscription> subscriptions_;
};

} // namespace mac_model
