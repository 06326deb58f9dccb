#include "applications/system_settings.h"

#include "screen/titled_window.h"
#include "views/view_builders.h"

#include <algorithm>
#include <map>
#include <utility>

namespace mac_model {

using tavrin::column;
using tavrin::text;

namespace {

constexpr double contentWidth = 480;
constexpr double besideOtherWindows = 180; // so that the window that opened it stays in sight

View switchRow(const std::string& bundleIdentifier, const std::string& name, bool isOn,
               std::function<void()> onPress) {
    auto toggle = tavrin::checkbox("", isOn, std::move(onPress));
    toggle.accessibilityLabel = name;
    return tavrin::row(
        {tavrin::icon({bundleIdentifier}, 16), text(name), tavrin::spacer(), std::move(toggle)},
        {.isCentered = true});
}

ApplicationSpec application() {
    ApplicationSpec settings;
    settings.bundleIdentifier = SystemSettings::bundleIdentifier;
    settings.name = "System Settings";
    return settings;
}

} // namespace

SystemSettings::SystemSettings(VirtualScheduler& scheduler, ProcessTable& processes,
                               const ScreensModel& screens, Permission& permission,
                               const ProgramInfo& program, SurfaceStack& stack)
    : world_(scheduler)
    , processes_(processes)
    , screens_(screens)
    , permission_(permission)
    , program_(program)
    , stack_(stack)
    , permissionChanges_(permission.onChanged.subscribe([this] { update(); })) {}

std::optional<SystemSettings::Page> SystemSettings::pageOf(std::string_view url) {
    if (url == accessibilityLink) return Page::Accessibility;
    if (url == loginItemsLink) return Page::LoginItems;
    return std::nullopt;
}

std::string SystemSettings::titleOf(Page page) {
    return page == Page::LoginItems ? "Login Items" : "Accessibility";
}

bool SystemSettings::open(std::string_view url) {
    const auto page = pageOf(url);
    if (!page) return false;
    auto running = processes_.withBundle(bundleIdentifier);
    if (running.empty()) {
        const auto launched = processes_.launch(application());
        if (!launched) return false;
        running.push_back(*launched);
    }
    processes_.activate(running.front());
    page_ = *page;
    showWindow(running.front());
    return true;
}

void SystemSettings::showWindow(ProcessIdentifier process) {
    if (stack_.find(window_) == nullptr) {
        Surface window;
        window.kind = SurfaceKind::Window;
        window.owner = process;
        window.deliver = [this](Work work) { world_.after(Seconds{0}, std::move(work)); };
        window.onDismissed = [this] { hasClosed(); };
        placeTitledWindow(window, content(), screens_.screens());
        SurfaceStack::moveBy(window, besideOtherWindows, 0);
        window_ = stack_.add(std::move(window)).identifier;
    }
    update();
    stack_.raise(window_);
    stack_.makeKey(window_);
}

void SystemSettings::hasClosed() {
    window_ = SurfaceIdentifier::None;
    // It may be closing because it was quit already.
    (void)processes_.quit(bundleIdentifier);
}

void SystemSettings::update() {
    auto* window = stack_.find(window_);
    if (!window) return;
    window->title = titleOf(page_);
    replaceContent(*window, content());
}

void SystemSettings::toggleOther(const std::string& bundle) {
    if (trustedOthers_.erase(bundle) == 0) trustedOthers_.insert(bundle);
    permission_.changeOtherEntry();
    update();
}

std::vector<View> SystemSettings::switches() {
    std::map<std::pair<std::string, std::string>, View> rows; // by name
    for (const auto* process : processes_.processes()) {
        const auto& other = process->application;
        const bool mayAsk = other.policy == Policy::Regular && !other.bundleIdentifier.empty() &&
                            !other.bundleIdentifier.starts_with("com.apple.");
        if (!mayAsk) continue;
        rows[{other.name, other.bundleIdentifier}] =
            switchRow(other.bundleIdentifier, other.name, trustedOthers_.contains(other.bundleIdentifier),
                      [this, bundle = other.bundleIdentifier] { toggleOther(bundle); });
    }
    if (permission_.isListed())
        rows[{program_.name, program_.bundleIdentifier}] =
            switchRow(program_.bundleIdentifier, program_.name, permission_.isTrusted(),
                      [this] { permission_.setTrusted(!permission_.isTrusted()); });
    std::vector<View> inOrder;
    for (auto& [name, row] : rows) inOrder.push_back(std::move(row));
    return inOrder;
}

View SystemSettings::content() { return page_ == Page::LoginItems ? loginItemsPage() : accessibilityPage(); }

View SystemSettings::loginItemsPage() const {
    return column(
        {text("Login Items", {.style = TextStyle::Heading}),
         text("These items open when you log in.", {.tone = Tone::Secondary}),
         tavrin::card({tavrin::row({tavrin::icon({program_.bundleIdentifier}, 16), text(program_.name)})},
                      {.spacing = 12, .padding = 12})},
        {.spacing = 12, .padding = 20, .width = contentWidth});
}

View SystemSettings::accessibilityPage() {
    return column({text("Accessibility", {.style = TextStyle::Heading}),
                   text("Allow the applications below to control your computer.", {.tone = Tone::Secondary}),
                   tavrin::card(switches(), {.spacing = 12, .padding = 12}),
                   text("macOS may ask for an administrator’s password.",
                        {.style = TextStyle::Caption, .tone = Tone::Secondary})},
                  {.spacing = 12, .padding = 20, .width = contentWidth});
}

} // namespace mac_model
