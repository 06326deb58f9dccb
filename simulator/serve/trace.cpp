#include "serve/trace.h"

#include "base/unicode.h"

#include <cmath>
#include <utility>

namespace mac_model {

using nlohmann::json;

namespace {

std::string shortened(const std::string& text) {
    constexpr std::size_t bytesMax = 100;
    const std::string front(tavrin::frontWithin(bytesMax, text));
    return front.size() == text.size() ? front : front + "…";
}

std::string inPoints(Point point) {
    return std::to_string(std::lround(point.x)) + ", " + std::to_string(std::lround(point.y));
}

std::string describe(const SyntheticEvent& event) {
    std::string text = event.type;
    if (event.at) text += " at " + inPoints(*event.at);
    if ((event.flags & 0x100000U) != 0) text += " with Command";
    if (!event.tap.empty()) text += ", " + event.tap + " tap";
    if (event.processIdentifier) text += ", to process " + std::to_string(*event.processIdentifier);
    return text;
}

std::string describe(const ChosenEntry& entry) {
    std::string text = entry.menu;
    for (const auto& title : entry.path) text += " › " + title;
    return text;
}

} // namespace

Trace::Trace(ModelledMac& modelled)
    : modelled_(modelled)
    , stored_(modelled.mac().preferences().describe(modelled.mac().programDomain())) {
    auto& mac = modelled.mac();
    const auto tell = [this](std::string text) { return [this, text] { note("told", text); }; };
    auto& subscriptions = subscriptions_;
    subscriptions.push_back(mac.program().onStarted.subscribe(tell("launched")));
    subscriptions.push_back(mac.program().onActivated.subscribe(tell("is the active application")));
    subscriptions.push_back(mac.programProcess().onDisconnected.subscribe(tell("its process ended")));
    subscriptions.push_back(mac.screens().onNotice.subscribe(tell("displays have changed")));
    subscriptions.push_back(mac.permission().onNotice.subscribe([this] {
        note("told", modelled_.mac().permission().isTrustedAsTold() ? "Accessibility may be used"
                                                                    : "Accessibility may not be used");
    }));
    subscriptions.push_back(mac.processes().onLaunched.subscribe(
        [this](ProcessIdentifier process) { note("told", nameOf(process) + " was launched"); }));
    subscriptions.push_back(mac.processes().onEnded.subscribe([this](ProcessIdentifier process) {
        note("told", "process " + std::to_string(process) + " has ended");
    }));
    subscriptions.push_back(
        modelled.content().events.onRecorded.subscribe([this](const SyntheticEvent& event) {
            if (event.text.empty())
                note("posted", describe(event));
            else
                note("said", event.text);
        }));
    subscriptions.push_back(modelled.content().chosen.onRecorded.subscribe(
        [this](const ChosenEntry& entry) { note("chose", describe(entry)); }));
}

std::string Trace::nameOf(ProcessIdentifier identifier) const {
    const auto* process = modelled_.mac().processes().find(identifier);
    return process ? process->application.name : "process " + std::to_string(identifier);
}

void Trace::note(std::string kind, std::string text) {
    const double time = std::round(modelled_.mac().scheduler().now().count() * 1000) / 1000;
    entries_.push_back({{"time", time}, {"kind", std::move(kind)}, {"text", std::move(text)}});
}

void Trace::noteStored() {
    auto now = modelled_.mac().preferences().describe(modelled_.mac().programDomain());
    if (now == stored_) return;
    for (const auto& [key, value] : now.items())
        if (!stored_.contains(key) || stored_[key] != value)
            note("stored", key + " = " + shortened(value.dump()));
    for (const auto& [key, value] : stored_.items())
        if (!now.contains(key)) note("stored", key + " removed");
    stored_ = std::move(now);
}

std::vector<json> Trace::take() {
    noteStored();
    return std::exchange(entries_, {});
}

} // namespace mac_model
