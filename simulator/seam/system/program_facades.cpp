#include "seam/system/program_facades.h"

#include "seam/system/program_host.h"
#include "seam/system/program_status_item.h"

namespace mac_model {

namespace {

constexpr Seconds lateActivationTime{0.5};
constexpr int majorVersionOfRequests = 14; // the first on which being active is only asked for

Policy policyOf(ActivationPolicy policy) {
    switch (policy) {
    case ActivationPolicy::Regular:
        return Policy::Regular;
    case ActivationPolicy::Accessory:
        return Policy::Accessory;
    case ActivationPolicy::Prohibited:
        return Policy::Background;
    }
    return Policy::Accessory;
}

tavrin::Screen screenOf(const ScreenSpec& spec) {
    return {spec.frame, spec.scale, spec.menuBarHeight, spec.leftMenuBarArea, spec.rightMenuBarArea};
}

} // namespace

std::string ProgramApplication::bundleIdentifier() const { return side_.mac.program.info().bundleIdentifier; }

std::string ProgramApplication::displayVersion() const { return side_.mac.program.info().displayVersion; }

void ProgramApplication::setActivationPolicy(ActivationPolicy policy) {
    if (side_.isOpen()) side_.mac.processes.setPolicy(side_.connection->process(), policyOf(policy));
}

void ProgramApplication::activate() {
    const bool isRequest = side_.mac.behaviour.version.major >= majorVersionOfRequests;
    const auto answer = isRequest ? side_.mac.behaviour.uncertainties.activation : Activation::Granted;
    if (answer == Activation::Declined) return;
    becomeActiveAfter(answer == Activation::Late ? lateActivationTime
                                                 : side_.mac.behaviour.faults.activationTime);
}

void ProgramApplication::announce(std::string sentence) {
    if (side_.isOpen()) side_.mac.program.onAnnounced.emit(sentence);
}

void ProgramApplication::activateIgnoringOthers() {
    becomeActiveAfter(side_.mac.behaviour.faults.activationTime);
}

void ProgramApplication::becomeActiveAfter(Seconds delay) {
    side_.mac.scheduler.callInWorldAfter(delay, [side = side_] {
        if (side.isOpen()) side.mac.processes.activate(side.connection->process());
    });
}

bool ProgramApplication::isActive() const {
    const auto* front = side_.mac.processes.frontmost();
    return side_.isOpen() && front && front->identifier == side_.connection->process();
}

bool ProgramApplication::takesKeys() const {
    const auto process = side_.connection->process();
    const auto* key = side_.mac.surfaces.key();
    return (key && key->owner == process) || side_.mac.menus.owner() == process;
}

Subscription ProgramApplication::onKeysReleased(std::function<void()> handler) {
    return side_.connection->relay(host_.onKeysReleased, std::move(handler));
}

Subscription ProgramApplication::onDidBecomeActive(std::function<void()> handler) {
    return side_.connection->relay(host_.onActivated, std::move(handler));
}

void ProgramApplication::showAboutPanel() {
    if (side_.isOpen()) side_.mac.panels.showAbout();
}

void ProgramApplication::terminate() {
    if (side_.isOpen()) host_.terminate();
}

void ProgramApplication::replyToShouldTerminate(bool terminates) {
    if (side_.isOpen()) host_.replyToShouldTerminate(terminates);
}

std::vector<tavrin::Screen> ProgramScreens::screens() const {
    std::vector<tavrin::Screen> screens;
    for (const auto& spec : side_.mac.screens.screens()) screens.push_back(screenOf(spec));
    return screens;
}

Subscription ProgramScreens::onChanged(std::function<void()> handler) {
    return side_.connection->relay(side_.mac.screens.onNotice, std::move(handler));
}

bool ProgramScreens::areShown() const { return side_.mac.screens.areShown(); }

Subscription ProgramScreens::onShownChanged(std::function<void()> handler) {
    return side_.connection->relay(side_.mac.screens.onShownNotice, std::move(handler));
}

std::unique_ptr<StatusItem> ProgramStatusItems::create(double length) {
    return std::make_unique<ProgramStatusItem>(side_, length);
}

Subscription ProgramStatusItems::onDrawnChanged(std::function<void()> handler) {
    return side_.connection->relay(side_.mac.arrangement.onProgramItemsDrawn, std::move(handler));
}

ProgramFacades::ProgramFacades(const ProgramSide& side, ProgramHost& host, tavrin::Presentation& presentation)
    : application_(side, host)
    , accessibility_(side)
    , defaults_(side)
    , eventMonitors_(side)
    , events_(side)
    , hotKeys_(side)
    , keyboard_(side)
    , loginItem_(side)
    , screens_(side)
    , statusItems_(side)
    , visibilityService_(side)
    , windowServer_(side)
    , workspace_(side)
    , updater_(side.mac.updater ? std::make_unique<ProgramUpdater>(side) : nullptr)
    , platform_{.scheduler = side.mac.scheduler,
                .application = application_,
                .accessibility = accessibility_,
                .defaults = defaults_,
                .eventMonitors = eventMonitors_,
                .events = events_,
                .hotKeys = hotKeys_,
                .keyboard = keyboard_,
                .loginItem = loginItem_,
                .presentation = presentation,
                .randomness = side.mac.randomness,
                .screens = screens_,
                .statusItems = statusItems_,
                .text = side.mac.text,
                .visibilityService = visibilityService_,
                .windowServer = windowServer_,
                .workspace = workspace_,
                .updater = updater_.get()} {}

} // namespace mac_model
