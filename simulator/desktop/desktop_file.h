#pragma once

#include "base/geometry.h"
#include "concurrency/scheduler.h"
#include "desktop/keyboard_layout.h"
#include "desktop/uncertainties.h"
#include "platform/hot_keys.h"
#include "vocabulary/vocabulary.h"

#include <array>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mac_model {

// A Mac as a desktop file describes it: plain values, checked by the loader and filled in with the defaults
// that docs/desktop-files.md gives. Points and frames count from the top left of the primary screen, y
// downwards; times are seconds. Each array of names holds the words of the enumeration above it, in order.

struct MacOSVersion {
    int major = 26;
    int minor = 0;

    auto operator<=>(const MacOSVersion&) const = default;
};

struct ScreenSpec {
    Rect frame{};
    double scale = 2;
    /// The parts of the menu bar beside the notch: both, or neither on a screen without a notch.
    std::optional<Rect> leftMenuBarArea{};
    std::optional<Rect> rightMenuBarArea{};
    double menuBarHeight = 30;

    bool hasNotch() const { return leftMenuBarArea && rightMenuBarArea; }

    bool operator==(const ScreenSpec&) const = default;
};

/// The height that macOS gives the menu bar of this screen when the file names none. Before macOS 26 a
/// notched bar has 37 points even where the notch takes fewer, and others have 24; since then 30.
double menuBarHeightOf(const ScreenSpec&, MacOSVersion);

enum class Modifier { Shift, Option, Control, Command };
inline constexpr std::array<std::string_view, 4> modifierNames{"shift", "option", "control", "command"};

struct MenuItemSpec {
    std::string title{};
    std::string identifier{}; ///< AXIdentifier; empty when it has none
    std::string key{};        ///< key equivalent; empty when it has none
    std::vector<Modifier> modifiers{};
    bool separator = false;
    std::string mark{}; ///< AXMenuItemMarkChar; empty when not ticked
    bool enabled = true;
    std::string role = "AXMenuItem";
    std::vector<MenuItemSpec> items{}; ///< the submenu
    std::vector<std::byte> picture{};  ///< a PNG; the program's menus alone have any

    bool operator==(const MenuItemSpec&) const = default;
};

enum class Opens { Menu, Popover, Panel, Nothing };
inline constexpr std::array<std::string_view, 4> opensNames{"menu", "popover", "panel", "nothing"};

struct StatusItemSpec {
    /// The name under which macOS keeps this item's place ("NSStatusItem Preferred Position " and this).
    std::string autosaveName{};
    std::string identifier{}; ///< AXIdentifier; empty when the item has none
    std::string title{};
    std::string description{};
    std::string help{};
    double width = 0;
    /// Larger is further left; an item without one goes left of all others.
    std::optional<double> preferredPosition{};
    Opens opens = Opens::Nothing;
    std::vector<MenuItemSpec> menu{};
    bool enabled = true;
    bool movable = true;
    /// Held in place by macOS (clock, Control Center): never dragged and never passed. Implies not movable.
    bool fixed = false;
    std::vector<std::string> actions{"AXPress"};
    int nesting = 0;        ///< AXGroup elements between the extras menu bar and the item
    bool accessible = true; ///< false: drawn and clickable, but in no Accessibility tree
    std::string symbol{};   ///< icon to draw; empty when its title is drawn

    bool operator==(const StatusItemSpec&) const = default;
};

enum class Policy { Regular, Accessory, Background };
inline constexpr std::array<std::string_view, 3> policyNames{"regular", "accessory", "background"};

/// None: every Accessibility call fails with "not implemented".
enum class AccessibilitySupport { Full, None };
inline constexpr std::array<std::string_view, 2> accessibilitySupportNames{"full", "none"};

/// The answer for AXExtrasMenuBar while no item is in the tree: an error (`Uncertainties::emptyExtras` says
/// which), or a bar without children.
enum class ExtrasBar { Absent, Empty };
inline constexpr std::array<std::string_view, 2> extrasBarNames{"absent", "empty"};

struct ApplicationSpec {
    std::string bundleIdentifier{}; ///< empty when the process has none
    std::string name{};
    int processIdentifier = 0; ///< never 0 in a loaded file
    Policy policy = Policy::Regular;
    std::vector<MenuItemSpec> menuBar{}; ///< the menus right of the application menu
    std::vector<StatusItemSpec> statusItems{};
    AccessibilitySupport accessibility = AccessibilitySupport::Full;
    double latencySeconds = 0.0003; ///< for each Accessibility message
    bool responding = true;         ///< false: hung from the start
    ExtrasBar extras = ExtrasBar::Absent;
    std::string icon{};
    bool hasSettings = false; ///< a command "Settings…" in its menu; the program's alone

    bool operator==(const ApplicationSpec&) const = default;
};

/// The answers of macOS 27's service that takes an allow-list of items.
enum class VisibilityService { Accepts, Rejects, Silent, Absent };
inline constexpr std::array<std::string_view, 4> visibilityServiceNames{"accepts", "rejects", "silent",
                                                                        "absent"};

/// The update framework in the program's bundle: none, or one that looks for new versions when told or by
/// itself.
enum class UpdaterSetting { Absent, Manual, Automatic };
inline constexpr std::array<std::string_view, 3> updaterNames{"absent", "manual", "automatic"};

/// How the system's service for applications that start at login takes the program: as it asks, only when the
/// user agrees in System Settings, not at all because it doesn't find it, or with a refusal.
enum class LoginItemAnswer { Accepts, RequiresApproval, NotFound, Refuses };
inline constexpr std::array<std::string_view, 4> loginItemAnswerNames{"accepts", "requiresApproval",
                                                                      "notFound", "refuses"};

/// A hot key that another process holds or has given up.
struct TakenHotKey {
    KeyCode keyCode = 0;
    std::vector<Modifier> modifiers{};
    bool isTaken = true;       ///< false: it was given up
    bool isExclusive = true;   ///< nobody else can register it from then on
    bool stopsPresses = false; ///< a press ends at its holder instead of reaching the key window

    bool operator==(const TakenHotKey&) const = default;
};

/// Spotlight, screenshots and the arrow keys of Mission Control, as on a new Mac.
std::vector<SymbolicHotKey> usualSymbolicHotKeys();

/// Domain to key to value. Values are strings, numbers, booleans, arrays and objects of these.
using PreferenceDomains = std::map<std::string, std::map<std::string, nlohmann::json>>;

struct DesktopFile {
    MacOSVersion macOS{};
    std::vector<ScreenSpec> screens{}; ///< never empty; the primary first, at the origin
    bool accessibilityTrusted = false;
    bool listedInAccessibility = false; // whether the program has a switch in System Settings
    /// As listed; the first regular one is frontmost at the start.
    std::vector<ApplicationSpec> applications{};
    PreferenceDomains defaults{};
    PreferenceDomains byHostDefaults{};
    std::map<std::string, std::string> bundles{}; ///< path of a bundle on disk to its identifier
    VisibilityService visibilityService = VisibilityService::Absent;
    Seconds visibilityDelay{0.25}; // from a request to that service to its answer
    Seconds assertionOutlives{0};  // from the end of a process to that of what it has the service hide
    UpdaterSetting updater = UpdaterSetting::Absent;
    LoginItemAnswer loginItem = LoginItemAnswer::Accepts;
    KeyboardLayout keyboardLayout = KeyboardLayout::Us;
    std::vector<TakenHotKey> hotKeysTaken{};
    std::vector<SymbolicHotKey> symbolicHotKeys = usualSymbolicHotKeys();
    Uncertainties model{};

    bool operator==(const DesktopFile&) const = default;
};

} // namespace mac_model
