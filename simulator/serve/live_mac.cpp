#include "serve/live_mac.h"

#include <algorithm>
#include <map>
#include <utility>

namespace mac_model {

using nlohmann::json;

namespace {

constexpr Seconds pictureInterval{0.008}; // no more pictures than a display shows
constexpr Seconds latenessMax{2};         // beyond which time is let go: the process was stopped

std::expected<std::string, std::string> textIn(const json& command, const char* key) {
    const auto found = command.find(key);
    if (found != command.end() && found->is_string()) return found->get<std::string>();
    return std::unexpected(std::string("Say which with \"") + key + "\", a text.");
}

} // namespace

LiveMac::~LiveMac() { clock_.cancelTimer(timer_); }

std::expected<void, std::string> LiveMac::show(const std::string& name, std::optional<int> major) {
    const auto choice = std::ranges::find(choices_, name, &DesktopChoice::name);
    if (choice == choices_.end()) return std::unexpected("There is no desktop of that name.");
    auto wanted = *choice;
    auto& desktop = wanted.desktop;
    if (major && *major != desktop.macOS.major) {
        desktop.macOS = {*major, 0};
        desktop.visibilityService = *major >= 27 ? VisibilityService::Accepts : VisibilityService::Absent;
    }
    // Two Macs never share a profile: the old one is gone, with all stored, before the new one begins.
    const bool replacesOne = modelled_ != nullptr;
    stop();
    const auto started = start(wanted);
    if (!started && replacesOne) (void)start(shown_);
    if (started) shown_ = std::move(wanted);
    if (modelled_) broadcast_.publishAnew(state());
    waitForNext();
    return started;
}

std::expected<void, std::string> LiveMac::start(const DesktopChoice& choice) {
    auto modelled = start_(choice.desktop);
    if (!modelled) {
        whyNone_ = modelled.error();
        return std::unexpected(std::move(modelled.error()));
    }
    modelled_ = std::move(*modelled);
    trace_ = std::make_unique<Trace>(*modelled_);
    beginning_ = clock_.now() - scheduler().now();
    return {};
}

void LiveMac::stop() {
    trace_ = nullptr;
    modelled_ = nullptr;
}

json LiveMac::command(const json& given) {
    if (modelled_) followClock();
    auto reply = outcome(given);
    if (modelled_) publish();
    waitForNext();
    return reply;
}

json LiveMac::outcome(const json& given) {
    using Own = std::expected<void, std::string> (LiveMac::*)(const json&);
    static const std::map<std::string, Own> own{{"desktop", &LiveMac::chooseDesktop},
                                                {"relaunch", &LiveMac::relaunch}};
    const auto name = textIn(given, "do");
    const auto found = name ? own.find(*name) : own.end();
    const bool bringsOne = found != own.end() && found->first == "desktop";
    if (!modelled_ && !bringsOne) return {{"ok", false}, {"error", whyNone_}};
    if (found != own.end()) {
        const auto done = (this->*found->second)(given);
        if (!done) return {{"ok", false}, {"error", done.error()}};
        return {{"ok", true}, {"time", scheduler().now().count()}};
    }
    auto reply = modelled_->driver().command(given);
    // What lets time pass has done so; the clock goes on from there.
    if (name && (*name == "wait" || *name == "settle"))
        beginning_ = std::min(beginning_, clock_.now() - scheduler().now());
    return reply;
}

std::expected<void, std::string> LiveMac::chooseDesktop(const json& command) {
    auto name = textIn(command, "name");
    if (!name) return std::unexpected(std::move(name.error()));
    const auto major = command.find("major");
    if (major == command.end()) return show(*name, std::nullopt);
    if (!major->is_number_integer() || *major < 11 || *major > 99)
        return std::unexpected("\"major\" must be a version of macOS from 11 to 99.");
    return show(*name, major->get<int>());
}

/// Launches an application of the desktop file that has been quit.
std::expected<void, std::string> LiveMac::relaunch(const json& command) {
    const auto bundle = textIn(command, "bundle");
    if (!bundle) return std::unexpected(bundle.error());
    auto& processes = modelled_->mac().processes();
    if (!processes.withBundle(*bundle).empty()) return std::unexpected("That application runs already.");
    const auto& applications = modelled_->mac().desktop().applications;
    const auto found = std::ranges::find(applications, *bundle, &ApplicationSpec::bundleIdentifier);
    if (found == applications.end()) return std::unexpected("This Mac has no such application.");
    auto application = *found;
    application.processIdentifier = 0;
    const auto launched = processes.launch(std::move(application));
    if (!launched) return std::unexpected(launched.error());
    return {};
}

/// Time in which nothing was due passes at once; what came due while nobody could see to it doesn't all
/// happen in one moment.
void LiveMac::followClock() {
    if (wakeTime_) beginning_ += std::max(Seconds{0}, clock_.now() - *wakeTime_ - latenessMax);
    const auto passed = clockTime() - scheduler().now();
    if (passed > Seconds{0}) scheduler().advance(passed);
}

void LiveMac::waitForNext() {
    clock_.cancelTimer(timer_);
    timer_ = tavrin::TimerIdentifier::None;
    wakeTime_ = std::nullopt;
    if (!modelled_) return;
    const auto due = scheduler().nextDue();
    if (!due) return;
    const auto delay = std::max(*due - clockTime(), pictureInterval);
    wakeTime_ = clock_.now() + delay;
    timer_ = clock_.callAfter(delay, [this] {
        timer_ = tavrin::TimerIdentifier::None;
        followClock();
        publish();
        waitForNext();
    });
}

void LiveMac::publish() { broadcast_.publish(state(), trace_->take()); }

json LiveMac::state() {
    auto state = modelled_->driver().command({{"do", "look"}});
    state.erase("ok");
    state.erase("time");
    state["surroundings"] = surroundings();
    return state;
}

json LiveMac::surroundings() const {
    json names = json::array();
    for (const auto& choice : choices_) names.push_back(choice.name);
    auto& mac = modelled_->mac();
    json applications = json::array();
    for (const auto& application : mac.desktop().applications) {
        if (application.bundleIdentifier.empty() || application.policy == Policy::Background) continue;
        const auto running = mac.processes().withBundle(application.bundleIdentifier);
        const auto* process = running.empty() ? nullptr : mac.processes().find(running.front());
        applications.push_back(
            {{"id", application.bundleIdentifier},
             {"name", application.name},
             {"running", process != nullptr},
             {"responding", process && process->application.responding},
             {"refusesDrags", mac.faults().refuseDrags.contains(application.bundleIdentifier)},
             {"hasItems", !application.statusItems.empty()}});
    }
    const auto choice = std::ranges::find(choices_, shown_.name, &DesktopChoice::name);
    return {{"majorOfDesktop", choice->desktop.macOS.major},
            {"desktops", std::move(names)},
            {"desktop", shown_.name},
            {"macOS", mac.version().major},
            {"screensOfDesktop", mac.desktop().screens.size()},
            {"applications", std::move(applications)}};
}

} // namespace mac_model
