#pragma once

#include "accessibility/server.h"
#include "applications/access_prompt.h"
#include "applications/program_panels.h"
#include "applications/system_settings.h"
#include "input/devices.h"
#include "input/hot_key_center.h"
#include "input/keyboard_model.h"
#include "input/synthetic_input.h"
#include "menu_bar/arrangement.h"
#include "menu_bar/windows.h"
#include "platform/randomness.h"
#include "platform/text.h"
#include "preferences/preferences_store.h"
#include "privacy/login_items.h"
#include "privacy/permission.h"
#include "screen/menu_tracking.h"
#include "screen/surface_stack.h"
#include "system/behaviour.h"
#include "system/bundles_on_disk.h"
#include "system/process_table.h"
#include "system/program_process.h"
#include "system/screens_model.h"
#include "system/updater_model.h"
#include "system/visibility_lists.h"
#include "vocabulary/vocabulary.h"

#include <memory>

namespace mac_model {

/// The parts of this Mac that the program's calls reach.
struct MacServices {
    VirtualScheduler& scheduler;
    const Behaviour& behaviour;
    ProgramProcess& program;
    ProcessTable& processes;
    ScreensModel& screens;
    const BundlesOnDisk& bundles;
    PreferencesStore& preferences;
    Permission& permission;
    LoginItems& loginItems;
    StatusItemTable& statusItems;
    Arrangement& arrangement;
    const MenuBarWindows& menuBarWindows;
    SurfaceStack& surfaces;
    MenuTracking& menus;
    SystemSettings& settings;
    AccessPrompt& accessPrompt;
    ProgramPanels& panels;
    AccessibilityServer& accessibility;
    SyntheticInput& input;
    KeyboardModel& keyboard;
    HotKeyCenter& hotKeys;
    Devices& devices;
    VisibilityLists& visibility;
    UpdaterModel* updater; // null when none is bundled
    tavrin::Text& text;
    tavrin::Randomness& randomness;
};

/// One life of the program's process and what it can call: every implementation of the seam keeps this. Once
/// the connection has closed, calls change nothing, give harmless answers, and call nobody.
struct ProgramSide {
    std::shared_ptr<ProgramConnection> connection;
    const MacServices& mac;

    bool isOpen() const { return connection->isOpen(); }

    /// Where the program keeps its preferences.
    DefaultsDomain domain() const { return {mac.program.info().bundleIdentifier}; }
};

} // namespace mac_model
