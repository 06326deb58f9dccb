#pragma once

#include "applications/application_menus.h"
#include "input/hot_key_center.h"
#include "input/keyboard_model.h"
#include "screen/menu_tracking.h"
#include "screen/surface_stack.h"
#include "system/program_process.h"
#include "vocabulary/vocabulary.h"

#include <string_view>
#include <vector>

namespace mac_model {

/// Where a key goes: to hot keys first, then to what the key window's process monitors, then to an open menu,
/// the key window and the front application's menus.
class Typing {
  public:
    Typing(KeyboardModel& keyboard, HotKeyCenter& hotKeys, const ProgramProcess& program,
           SurfaceStack& surfaces, MenuTracking& menus, ApplicationMenus& applicationMenus)
        : keyboard_(keyboard)
        , hotKeys_(hotKeys)
        , program_(program)
        , surfaces_(surfaces)
        , menus_(menus)
        , applicationMenus_(applicationMenus) {}

    Typing(const Typing&) = delete;
    Typing& operator=(const Typing&) = delete;

    /// `key` is the character on the key in lower case, or one of the names of keys ("return", "f5"). False
    /// when nothing listens to it.
    bool pressKey(std::string_view key, const std::vector<Modifier>&);

  private:
    bool showToMonitors(std::string_view key, const std::vector<Modifier>&, const KeyPress&);
    bool pressKeyInFront(std::string_view key, const std::vector<Modifier>&);
    bool pressKeyInMenu(std::string_view key, const std::vector<Modifier>&);
    bool closeKeySurface(std::string_view key);

    KeyboardModel& keyboard_;
    HotKeyCenter& hotKeys_;
    const ProgramProcess& program_;
    SurfaceStack& surfaces_;
    MenuTracking& menus_;
    ApplicationMenus& applicationMenus_;
};

} // namespace mac_model
