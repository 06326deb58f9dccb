#include "driver/world_settings.h"

#include "desktop/defaults_json.h"
#include "desktop/desktop_loader.h"
#include "vocabulary/vocabulary.h"

#include <array>
#include <map>
#include <tuple>
#include <utility>

namespace mac_model {

namespace {

using nlohmann::json;

constexpr double secondsMax = 60;
constexpr int dragsMax = 1'000'000;
constexpr std::array<std::string_view, 3> behindNotchNames{"no", "presentItems", "allItems"};

/// A message of the desktop file's readers names the place itself.
void noteLine(const std::string& line, const std::string& pointer, FirstFault& faults) {
    const auto prefix = line.find(": ");
    if (line.starts_with(pointer) && prefix != std::string::npos)
        return faults.note(line.substr(0, prefix), line.substr(prefix + 2));
    faults.note(pointer, line);
}

std::string runningBundle(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    if (!value.is_string())
        faults.note(pointer, "must be a bundle identifier, not " + std::string(kindOf(value)));
    auto bundle = value.is_string() ? value.get<std::string>() : std::string();
    if (value.is_string() && world.mac.processes().withBundle(bundle).empty())
        faults.note(pointer, "names " + inQuotes(bundle) + ", which doesn't run");
    return bundle;
}

bool flagOf(const json& value, const std::string& pointer, FirstFault& faults) {
    if (!value.is_boolean()) faults.note(pointer, "must be true or false, not " + std::string(kindOf(value)));
    return value.is_boolean() && value.get<bool>();
}

template <class Action>
Change onBundle(World world, const json& value, const std::string& pointer, FirstFault& faults,
                Action action) {
    return [world, bundle = runningBundle(world, value, pointer, faults), action] {
        // The check has already ruled out every failure of these.
        (void)action(world.mac, bundle);
    };
}

Change quit(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    return onBundle(world, value, pointer, faults,
                    [](Mac& mac, const std::string& b) { return mac.processes().quit(b); });
}

Change hang(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    return onBundle(world, value, pointer, faults,
                    [](Mac& mac, const std::string& b) { return mac.processes().hang(b); });
}

Change resume(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    return onBundle(world, value, pointer, faults,
                    [](Mac& mac, const std::string& b) { return mac.processes().resume(b); });
}

Change removeItem(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    const auto bundle = runningBundle(world, value, pointer, faults);
    bool hasItem = false;
    for (const auto process : world.mac.processes().withBundle(bundle))
        for (const auto* item : world.mac.statusItems().itemsOf(process))
            hasItem = hasItem || item->isVisible;
    if (!hasItem) faults.note(pointer, "names " + inQuotes(bundle) + ", which has no item in the menu bar");
    return [world, bundle] { (void)world.mac.statusItems().removeItems(bundle); };
}

Change latency(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    std::vector<std::pair<std::string, double>> latencies;
    ObjectReader reader(value, pointer, faults);
    for (const auto& [bundle, seconds] : value.items()) {
        if (!value.is_object()) break;
        (void)runningBundle(world, bundle, reader.at(bundle), faults);
        if (const auto number = reader.number(bundle, {0, secondsMax}, Need::Required))
            latencies.emplace_back(bundle, *number);
    }
    return [world, latencies] {
        for (const auto& [bundle, seconds] : latencies)
            (void)world.mac.processes().setLatency(bundle, Seconds{seconds});
    };
}

Change launch(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    auto application = parseApplication(value, pointer);
    if (!application) {
        noteLine(application.error(), pointer, faults);
        return nullptr;
    }
    const int process = application->processIdentifier;
    if (process != 0 && world.mac.processes().find(process))
        faults.note(pointerTo(pointer, "processIdentifier"), "is in use");
    return [world, application = *application] { (void)world.mac.processes().launch(application); };
}

Change screens(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    auto screens = parseScreens(value, pointer, world.mac.version());
    if (!screens) {
        noteLine(screens.error(), pointer, faults);
        return nullptr;
    }
    return [world, screens = *screens] { world.mac.screens().set(screens); };
}

Change model(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    auto model = parseUncertainties(value, pointer, world.mac.uncertainties());
    if (!model) {
        noteLine(model.error(), pointer, faults);
        return nullptr;
    }
    return [world, model = *model] { world.mac.setUncertainties(model); };
}

Change trusted(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    return [world, isOn = flagOf(value, pointer, faults)] { world.mac.permission().setTrusted(isOn); };
}

/// Either a bundle, which then gets `usual`, or bundles with one of the names each; the first name ends the
/// fault.
template <class Kind, std::size_t Count>
std::vector<std::pair<std::string, Kind>>
perBundle(World world, const json& value, const std::string& pointer, FirstFault& faults,
          const std::array<std::string_view, Count>& names, Kind usual) {
    std::vector<std::pair<std::string, Kind>> wanted;
    if (!value.is_object()) {
        wanted.emplace_back(runningBundle(world, value, pointer, faults), usual);
        return wanted;
    }
    ObjectReader reader(value, pointer, faults);
    for (const auto& [bundle, how] : value.items()) {
        (void)runningBundle(world, bundle, reader.at(bundle), faults);
        wanted.emplace_back(bundle, reader.choice(bundle, names, Kind{}));
    }
    return wanted;
}

Change behindNotch(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    const auto wanted = perBundle(world, value, pointer, faults, behindNotchNames, BehindNotch::PresentItems);
    const auto* primary = world.mac.screens().primary();
    if (!primary || !primary->hasNotch())
        faults.note(pointer, "needs a notch, and the primary screen has none");
    return [world, wanted] {
        for (const auto& [bundle, how] : wanted) (void)world.mac.statusItems().setBehindNotch(bundle, how);
    };
}

Change allowedInMenuBar(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    constexpr std::array<std::string_view, 2> names{"no", "yes"};
    constexpr int firstVersionWithSwitch = 26;
    const auto wanted = perBundle(world, value, pointer, faults, names, true);
    if (world.mac.version().major < firstVersionWithSwitch)
        faults.note(pointer, "needs macOS 26, whose System Settings have that switch");
    return [world, wanted] {
        for (const auto& [bundle, isAllowed] : wanted)
            (void)world.mac.statusItems().setAllowed(bundle, isAllowed);
    };
}

Change refuseDrags(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    enum class Refusal { No, Yes };
    constexpr std::array<std::string_view, 2> names{"no", "yes"};
    return [world, wanted = perBundle(world, value, pointer, faults, names, Refusal::Yes)] {
        auto& refused = world.mac.faults().refuseDrags;
        for (const auto& [bundle, refusal] : wanted)
            if (refusal == Refusal::Yes)
                refused.insert(bundle);
            else
                refused.erase(bundle);
    };
}

Change misreportedWindow(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    const auto wanted = perBundle(world, value, pointer, faults, windowReportNames, WindowReport::Displaced);
    return [world, wanted] {
        for (const auto& [bundle, report] : wanted) world.mac.faults().misreportedWindows[bundle] = report;
    };
}

/// Another program writes into preferences, as "defaults write" does.
Change preferences(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    std::vector<std::tuple<std::string, std::string, DefaultsValue>> wanted;
    ObjectReader domains(value, pointer, faults);
    for (const auto& [domain, keys] : value.items()) {
        if (!value.is_object()) break;
        const auto place = domains.at(domain);
        ObjectReader reader(keys, place, faults);
        for (const auto& [key, one] : keys.items()) {
            if (!keys.is_object()) break;
            const auto read = defaultsValue(one);
            if (!read) faults.note(pointerTo(place, key), "can't be kept in preferences");
            if (read) wanted.emplace_back(domain, key, *read);
        }
    }
    return [world, wanted] {
        for (const auto& [domain, key, one] : wanted) world.mac.preferences().set({domain}, key, one);
    };
}

/// A bundle's new faults replace all that it had before.
Change menus(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    std::map<std::string, MenuFaults> wanted;
    ObjectReader reader(value, pointer, faults);
    for (const auto& [bundle, how] : value.items()) {
        if (!value.is_object()) break;
        (void)runningBundle(world, bundle, reader.at(bundle), faults);
        ObjectReader menu(how, reader.at(bundle), faults);
        constexpr NumberRange delays{0, secondsMax};
        auto& fault = wanted[bundle];
        fault.ignoresPress = menu.flag("ignoresPress", false);
        fault.blocksInPress = menu.flag("blocksInPress", false);
        fault.opensAfter = Seconds{menu.number("opensAfter", delays).value_or(0)};
        if (const auto fillsAfter = menu.number("fillsAfter", delays))
            fault.fillsAfter = Seconds{*fillsAfter};
        fault.hidesShownMenu = menu.flag("hidesShownMenu", false);
        fault.refusesChoices = menu.flag("refusesChoices", false);
        fault.ignoresCancel = menu.flag("ignoresCancel", false);
        fault.ignoresEscape = menu.flag("ignoresEscape", false);
        fault.isDisabledBehind = menu.flag("isDisabledBehind", false);
        menu.refuseOthers();
    }
    return [world, wanted] {
        for (const auto& [bundle, fault] : wanted) world.mac.faults().menus[bundle] = fault;
    };
}

Change loseDrags(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    const bool isCount = value.is_number_integer() && value >= 0 && value <= dragsMax;
    if (!isCount) faults.note(pointer, "must be a whole number from 0 to " + std::to_string(dragsMax));
    return [world, every = isCount ? value.get<int>() : 0] { world.mac.faults().loseDrags = every; };
}

template <bool Faults::* Fault>
Change fault(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    return [world, isOn = flagOf(value, pointer, faults)] {
        world.mac.faults().*Fault = isOn;
        world.mac.arrangement().refresh();
    };
}

Change activeDisplay(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    const auto count = world.mac.screens().screens().size();
    const bool isIndex = value.is_number_integer() && value >= 0 && value < count;
    if (!isIndex) faults.note(pointer, "must be the place of a display among the screens, from 0");
    return [world, index = isIndex ? value.get<std::size_t>() : 0] { world.mac.screens().setActive(index); };
}

template <bool Unseen::* Kind>
Change unseen(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    return [world, isOn = flagOf(value, pointer, faults)] {
        auto unseen = world.mac.screens().unseen();
        unseen.*Kind = isOn;
        world.mac.screens().setUnseen(unseen);
    };
}

/// The lid is closed and opened again: for the programs no time passes, and then much has.
Change sleep(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    constexpr double sleepMax = 86'400;
    const bool isTime = value.is_number() && value >= 0 && value <= sleepMax;
    if (!isTime) faults.note(pointer, "must be a number of seconds from 0 to 86400");
    return [world, seconds = Seconds{isTime ? value.get<double>() : 0}] {
        auto& screens = world.mac.screens();
        const auto awake = screens.unseen();
        auto asleep = awake;
        asleep.isDisplayAsleep = true;
        screens.setUnseen(asleep);
        world.mac.scheduler().passAsleep(seconds);
        screens.setUnseen(awake);
    };
}

template <Seconds Faults::* Time>
Change time(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    const bool isTime = value.is_number() && value >= 0 && value <= secondsMax;
    if (!isTime) faults.note(pointer, "must be a number from 0 to 60");
    return
        [world, seconds = Seconds{isTime ? value.get<double>() : 0}] { world.mac.faults().*Time = seconds; };
}

Change visibilityService(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    const auto index =
        indexIn(visibilityServiceNames.data(), visibilityServiceNames.size(), value, pointer, faults);
    return [world, service = static_cast<VisibilityService>(index.value_or(0))] {
        world.mac.visibility().answer = service;
    };
}

template <Seconds VisibilityLists::* Time>
Change visibilityTime(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    constexpr double longest = 3600;
    const bool isTime = value.is_number() && value >= 0 && value <= longest;
    if (!isTime) faults.note(pointer, "must be a number from 0 to 3600");
    return [world, seconds = Seconds{isTime ? value.get<double>() : 0}] {
        world.mac.visibility().*Time = seconds;
    };
}

Change notificationCenter(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    const bool isOpen = flagOf(value, pointer, faults);
    auto& center = world.mac.content().notificationCenter;
    if (isOpen && !center.canOpen())
        faults.note(pointer, "needs com.apple.notificationcenterui, which isn’t running");
    return [&center, isOpen] { isOpen ? center.open(nullptr) : center.close(); };
}

Change loginItem(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    const auto index =
        indexIn(loginItemAnswerNames.data(), loginItemAnswerNames.size(), value, pointer, faults);
    return [world, answer = static_cast<LoginItemAnswer>(index.value_or(0))] {
        world.mac.loginItems().answer = answer;
    };
}

Change reducedMotion(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    return [world, isOn = flagOf(value, pointer, faults)] { world.mac.setReducesMotion(isOn); };
}

Change keyboardLayout(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    const auto index =
        indexIn(keyboardLayoutNames.data(), keyboardLayoutNames.size(), value, pointer, faults);
    return [world, layout = static_cast<KeyboardLayout>(index.value_or(0))] {
        world.mac.keyboard().layout = layout;
    };
}

Change hotKeyTaken(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    auto taken = parseTakenHotKey(value, pointer, world.mac.keyboard().layout);
    if (!taken) {
        noteLine(taken.error(), pointer, faults);
        return nullptr;
    }
    return [world, taken = *taken] { world.mac.hotKeys().set(taken); };
}

Change symbolicHotKeys(World world, const json& value, const std::string& pointer, FirstFault& faults) {
    auto keys = parseSymbolicHotKeys(value, pointer);
    if (!keys) {
        noteLine(keys.error(), pointer, faults);
        return nullptr;
    }
    return [world, keys = *keys] { world.mac.hotKeys().symbolicHotKeys = keys; };
}

constexpr std::array settings{
    WorldSetting{"model", model},
    WorldSetting{"occlusionLag", fault<&Faults::occlusionLag>},
    WorldSetting{"dropsOwnersOfLongItems", fault<&Faults::dropsOwnersOfLongItems>},
    WorldSetting{"screensVanishBriefly", fault<&Faults::screensVanishBriefly>},
    WorldSetting{"refuseDrags", refuseDrags},
    WorldSetting{"loseDrags", loseDrags},
    WorldSetting{"personMovesPointerDuringDrags", fault<&Faults::personMovesPointerDuringDrags>},
    WorldSetting{"arrangingTime", time<&Faults::arrangingTime>},
    WorldSetting{"activationTime", time<&Faults::activationTime>},
    WorldSetting{"eventsFail", fault<&Faults::eventsFail>},
    WorldSetting{"windowServerAbsent", fault<&Faults::windowServerAbsent>},
    WorldSetting{"misreportedWindow", misreportedWindow},
    WorldSetting{"menus", menus},
    WorldSetting{"visibilityService", visibilityService},
    WorldSetting{"visibilityDelay", visibilityTime<&VisibilityLists::delay>},
    WorldSetting{"assertionOutlives", visibilityTime<&VisibilityLists::outlives>},
    WorldSetting{"notificationCenter", notificationCenter},
    WorldSetting{"loginItem", loginItem},
    WorldSetting{"reducedMotion", reducedMotion},
    WorldSetting{"keyboardLayout", keyboardLayout},
    WorldSetting{"hotKeyTaken", hotKeyTaken},
    WorldSetting{"symbolicHotKeys", symbolicHotKeys},
    WorldSetting{"preferences", preferences},
    WorldSetting{"trusted", trusted},
    WorldSetting{"screens", screens},
    WorldSetting{"activeDisplay", activeDisplay},
    WorldSetting{"menuBarHidden", unseen<&Unseen::isMenuBarHidden>},
    WorldSetting{"screenLocked", unseen<&Unseen::isScreenLocked>},
    WorldSetting{"displayAsleep", unseen<&Unseen::isDisplayAsleep>},
    WorldSetting{"sleep", sleep},
    WorldSetting{"latency", latency},
    WorldSetting{"hang", hang},
    WorldSetting{"resume", resume},
    WorldSetting{"behindNotch", behindNotch},
    WorldSetting{"allowedInMenuBar", allowedInMenuBar},
    WorldSetting{"removeItem", removeItem},
    WorldSetting{"quit", quit},
    WorldSetting{"launch", launch}};

} // namespace

std::span<const WorldSetting> worldSettings() { return settings; }

} // namespace mac_model
