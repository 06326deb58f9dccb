#include "mac/mac.h"

#include "seam/system/seeded_randomness.h"
#include "seam/system/text_icu.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace mac_model {

namespace {

std::unique_ptr<UpdaterModel> makeUpdater(UpdaterSetting setting) {
    if (setting == UpdaterSetting::Absent) return nullptr;
    return std::make_unique<UpdaterModel>(setting == UpdaterSetting::Automatic);
}

/// macOS 27 has no menu bar without its agent, and starts it itself.
DesktopFile withAgent(DesktopFile desktop) {
    constexpr std::string_view bundle = "com.apple.MenuBarAgent";
    const bool needsAgent = Behaviour{desktop.macOS, {}, {}}.hasHostedBar();
    const auto& listed = desktop.applications;
    if (!needsAgent || std::ranges::find(listed, bundle, &ApplicationSpec::bundleIdentifier) != listed.end())
        return desktop;
    ApplicationSpec agent;
    agent.bundleIdentifier = bundle;
    agent.name = "MenuBarAgent";
    agent.policy = Policy::Accessory;
    desktop.applications.push_back(std::move(agent));
    return desktop;
}

Permission::AtFirst permissionAtFirst(const DesktopFile& desktop) {
    using enum Permission::AtFirst;
    if (desktop.accessibilityTrusted) return Trusted;
    return desktop.listedInAccessibility ? Denied : Unlisted;
}

} // namespace

std::expected<std::unique_ptr<Mac>, std::string> Mac::create(VirtualScheduler& scheduler,
                                                             MacOptions options) {
    auto preferences = PreferencesStore::create(scheduler, options.profile, options.desktop);
    if (!preferences) return std::unexpected(preferences.error());
    return std::unique_ptr<Mac>(new Mac(scheduler, std::move(options), std::move(*preferences)));
}

Mac::Mac(VirtualScheduler& scheduler, MacOptions options, std::unique_ptr<PreferencesStore> preferences)
    : scheduler_(scheduler)
    , desktop_(withAgent(std::move(options.desktop)))
    , behaviour_{desktop_.macOS, desktop_.model, {}}
    , preferences_(std::move(preferences))
    , screens_(scheduler, desktop_.screens, behaviour_.faults)
    , processes_(desktop_.applications)
    , programProcess_(std::move(options.program))
    , bundles_(desktop_)
    , permission_(scheduler, *preferences_, behaviour_.uncertainties, programProcess_.info().bundleIdentifier,
                  permissionAtFirst(desktop_))
    , loginItems_(*preferences_, programProcess_.info().bundleIdentifier, desktop_.loginItem)
    , visibility_(scheduler, desktop_)
    , statusItems_(processes_, *preferences_, behaviour_)
    , arrangement_(scheduler, statusItems_, processes_, screens_, visibility_, behaviour_)
    , flashes_(statusItems_, visibility_)
    , itemDrag_(statusItems_, arrangement_, processes_, screens_, behaviour_)
    , menuBarWindows_(statusItems_, processes_, screens_, behaviour_)
    , content_(scheduler, {processes_, screens_, statusItems_, visibility_, behaviour_})
    , overflowMenu_(arrangement_, statusItems_, processes_, screens_, content_.menus, content_.statusItems)
    , settings_(scheduler, processes_, screens_, permission_, programProcess_.info(), content_.stack)
    , accessPrompt_(scheduler, processes_, screens_, programProcess_.info(), content_.stack,
                    [this] { (void)settings_.open(SystemSettings::accessibilityLink); })
    , panels_(scheduler, programProcess_, screens_, content_.stack)
    , menuContents_(scheduler, processes_, behaviour_.faults, content_.menus)
    , accessibilityTree_(processes_, statusItems_, arrangement_, screens_, behaviour_.uncertainties,
                         menuContents_)
    , messages_(scheduler, processes_, permission_, behaviour_.uncertainties, options.seed)
    , actions_(statusItems_, processes_, content_.statusItems, content_.applicationMenus, content_.menus,
               menuContents_)
    , accessibility_(scheduler, messages_, accessibilityTree_, menuContents_, actions_, behaviour_.faults)
    , keyboard_(desktop_.keyboardLayout)
    , hotKeys_(desktop_)
    , typing_(keyboard_, hotKeys_, programProcess_, content_.stack, content_.menus, content_.applicationMenus)
    , person_(scheduler, content_, pressTargets(), typing_)
    , eventNumbers_(content_.counts, behaviour_.version)
    , windowInput_(pressTargets(), menuBarWindows_, eventNumbers_)
    , input_(scheduler, {pressTargets(), content_, person_, windowInput_}, eventNumbers_, behaviour_.faults)
    , text_(makeIcuText())
    , randomness_(std::make_unique<SeededRandomness>(options.seed, *preferences_))
    , updater_(makeUpdater(desktop_.updater))
    , services_(services())
    , presentation_(services_, program_)
    , program_(services_) {
    if (const auto* primary = screens_.primary()) content_.pointer.at = primary->frame.middle();
    connectParts();
}

Mac::~Mac() = default;

PressTargets Mac::pressTargets() {
    return {.menus = content_.menus,
            .surfaces = content_.stack,
            .applicationMenus = content_.applicationMenus,
            .items = statusItems_,
            .arrangement = arrangement_,
            .itemDrag = itemDrag_,
            .itemSurfaces = content_.statusItems,
            .overflow = overflowMenu_,
            .processes = processes_,
            .screens = screens_};
}

MacServices Mac::services() {
    return {.scheduler = scheduler_,
            .behaviour = behaviour_,
            .program = programProcess_,
            .processes = processes_,
            .screens = screens_,
            .bundles = bundles_,
            .preferences = *preferences_,
            .permission = permission_,
            .loginItems = loginItems_,
            .statusItems = statusItems_,
            .arrangement = arrangement_,
            .menuBarWindows = menuBarWindows_,
            .surfaces = content_.stack,
            .menus = content_.menus,
            .settings = settings_,
            .accessPrompt = accessPrompt_,
            .panels = panels_,
            .accessibility = accessibility_,
            .input = input_,
            .keyboard = keyboard_,
            .hotKeys = hotKeys_,
            .devices = content_,
            .visibility = visibility_,
            .updater = updater_.get(),
            .text = *text_,
            .randomness = *randomness_};
}

/// Passes on the news between parts that don't know each other.
void Mac::connectParts() {
    followFrontProcess();
    subscriptions_.push_back(
        processes_.onEnded.subscribe([this](ProcessIdentifier ended) { processEnded(ended); }));
    subscriptions_.push_back(processes_.onFrontChanged.subscribe([this] { followFrontProcess(); }));
    subscriptions_.push_back(keyboard_.onBeep.subscribe([this] { note("beep"); }));
    subscriptions_.push_back(programProcess_.onAnnounced.subscribe(
        [this](const std::string& sentence) { note("announcement", sentence); }));
    subscriptions_.push_back(statusItems_.onChanged.subscribe([this] {
        presentation_.followStatusItems();
        content_.statusItems.closeOrphans();
    }));
    subscriptions_.push_back(permission_.onChanged.subscribe([this] {
        if (!permission_.isTrusted()) input_.permissionLost();
    }));
    subscriptions_.push_back(programProcess_.onDisconnected.subscribe([this] { input_.senderEnded(); }));
}

void Mac::processEnded(ProcessIdentifier ended) {
    content_.stack.dismissAllOf(ended);
    visibility_.processEnded(ended);
    if (behaviour_.hasHostedBar() && !arrangement_.agent()) visibility_.agentEnded();
}

void Mac::followFrontProcess() {
    const auto* front = processes_.frontmost();
    content_.stack.setActive(front ? front->identifier : 0);
    const auto& program = programProcess_.connection();
    content_.cursor.setOwnerActive(front && program && program->process() == front->identifier);
}

void Mac::note(std::string type, std::string text) {
    SyntheticEvent event;
    event.time = scheduler_.now();
    event.type = std::move(type);
    event.text = std::move(text);
    content_.events.record(std::move(event));
}

void Mac::setUncertainties(const Uncertainties& uncertainties) {
    behaviour_.uncertainties = uncertainties;
    arrangement_.refresh();
}

MacStatistics Mac::statistics() const {
    return {messages_.messages(), scheduler_.timersPending(), scheduler_.tasksAlive(),
            flashes_.count(),     visibility_.activations(),  scheduler_.now()};
}

} // namespace mac_model
