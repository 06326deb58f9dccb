#include "applications/system_settings.h"

#include "screen/titled_window.h"
#include "views/view_builders.h"

#include <algorithm>
#include <map>
#include <utility>

namespace mac_model {

namespace {

constexpr std::string_view linkScheme = "x-apple.systempreferences:";
constexpr std::string_view accessibilityPage = "com.apple.preference.security?Privacy_Accessibility";
constexpr double contentWidth = 480;
constexpr double besideOtherWindows = 180; // so that it doesn't lie right on what opened it

tavrin::View switchRow(const std::string& bundleIdentifier, const std::string& name, bool isOn,
                       std::function<void()> onPress) {
    auto icon = tavrin::simple(tavrin::ViewKind::Icon);
    icon.icon = tavrin::IconOfApplication{bundleIdentifier};
    auto toggle = tavrin::simple(tavrin::ViewKind::Checkbox);
    toggle.accessibilityLabel = name;
    toggle.isChecked = isOn;
    toggle.onPress = std::move(onPress);
    return tavrin::row({std::move(icon), tavrin::text(name), tavrin::spacer(), std::move(toggle)},
                       {.isCentered = true});
}

ApplicationSpec application() {
    ApplicationSpec settings;
    settings.bundleIdentifier = SystemSettings::bundleIdentifier;
    settings.name = "System Settings";
    return settings;
}

} // namespace

SystemSettings::SystemSettings(Mac& mac, SurfaceStack& stack)
    : mac_(mac)
    , stack_(stack)
    , world_(mac.scheduler())
    , permissionChanges_(mac.permission().onChanged.subscribe([this] { update(); })) {}

bool SystemSettings::open(std::string_view url) {
    if (!url.starts_with(linkScheme) || url.substr(linkScheme.size()) != accessibilityPage) return false;
    auto running = mac_.processes().withBundle(bundleIdentifier);
    if (running.empty()) {
        const auto launched = mac_.processes().launch(application());
        if (!launched) return false;
        running.push_back(*launched);
    }
    mac_.processes().activate(running.front());
    showWindow(running.front());
    return true;
}

void SystemSettings::showWindow(tavrin::ProcessIdentifier process) {
    if (stack_.find(window_) == nullptr) {
        Surface window;
        window.kind = SurfaceKind::Window;
        window.owner = process;
        window.title = "Accessibility";
        window.deliver = [this](tavrin::Work work) { world_.after(tavrin::Seconds{0}, std::move(work)); };
        window.onDismissed = [this] { hasClosed(); };
        placeTitledWindow(window, content(), mac_.screens().screens());
        SurfaceStack::moveBy(window, besideOtherWindows, 0);
        window_ = stack_.add(std::move(window)).identifier;
    }
    stack_.raise(window_);
    stack_.makeKey(window_);
}

void SystemSettings::hasClosed() {
    window_ = SurfaceIdentifier::None;
    // It may be closing because it was quit already.
    (void)mac_.processes().quit(bundleIdentifier);
}

void SystemSettings::update() {
    if (auto* window = stack_.find(window_)) replaceContent(*window, content());
}

void SystemSettings::toggleOther(const std::string& bundle) {
    if (trustedOthers_.erase(bundle) == 0) trustedOthers_.insert(bundle);
    mac_.permission().changeOtherEntry();
    update();
}

std::vector<tavrin::View> SystemSettings::switches() {
    std::map<std::pair<std::string, std::string>, tavrin::View> rows; // by name
    for (const auto* process : mac_.processes().processes()) {
        const auto& other = process->application;
        const bool mayAsk = other.policy == Policy::Regular && !other.bundleIdentifier.empty() &&
                            !other.bundleIdentifier.starts_with("com.apple.");
        if (!mayAsk) continue;
        rows[{other.name, other.bundleIdentifier}] =
            switchRow(other.bundleIdentifier, other.name, trustedOthers_.contains(other.bundleIdentifier),
                      [this, bundle = other.bundleIdentifier] { toggleOther(bundle); });
    }
    const auto& program = mac_.program().info();
    rows[{program.name, program.bundleIdentifier}] =
        switchRow(program.bundleIdentifier, program.name, mac_.permission().isTrusted(),
                  [this] { mac_.permission().setTrusted(!mac_.permission().isTrusted()); });
    std::vector<tavrin::View> inOrder;
    for (auto& [name, row] : rows) inOrder.push_back(std::move(row));
    return inOrder;
}

tavrin::View SystemSettings::content() {
    using tavrin::TextStyle;
    using tavrin::Tone;
    return tavrin::column(
        {tavrin::text("Accessibility", {.style = TextStyle::Heading}),
         tavrin::text("Allow the applications below to control your computer.", {.tone = Tone::Secondary}),
         tavrin::card(switches(), {.spacing = 12, .padding = 12}),
         tavrin::text("macOS may ask for an administrator’s password.",
                      {.style = TextStyle::Caption, .tone = Tone::Secondary})},
        {.spacing = 12, .padding = 20, .width = contentWidth});
}

} // namespace mac_model
