#include "applications/access_prompt.h"

#include "screen/keyboard_focus.h"
#include "screen/placement.h"
#include "views/view_builders.h"

#include <string>
#include <utility>

namespace mac_model {

using tavrin::text;

namespace {
constexpr double contentWidth = 300;
} // namespace

AccessPrompt::AccessPrompt(VirtualScheduler& scheduler, ProcessTable& processes, const ScreensModel& screens,
                           const ProgramInfo& program, SurfaceStack& stack,
                           std::function<void()> openSettings)
    : world_(scheduler)
    , processes_(processes)
    , screens_(screens)
    , program_(program)
    , stack_(stack)
    , openSettings_(std::move(openSettings)) {}

void AccessPrompt::show() {
    if (stack_.find(shown_) == nullptr) {
        const auto view = content();
        auto surface = dialog(process());
        surface.frame = windowFrame(measured(view, contentWidth), screenFor(screens_.screens(), {}));
        showAnew(surface, laidOut(view, surface.frame));
        shown_ = stack_.add(std::move(surface)).identifier;
    }
    processes_.activate(stack_.find(shown_)->owner);
    stack_.raise(shown_);
    stack_.makeKey(shown_);
}

ProcessIdentifier AccessPrompt::process() {
    ApplicationSpec application;
    application.bundleIdentifier = bundleIdentifier;
    application.name = "universalAccessAuthWarn";
    application.policy = Policy::Accessory;
    const auto running = processes_.withBundle(bundleIdentifier);
    return running.empty() ? processes_.launch(std::move(application)).value() : running.front();
}

Surface AccessPrompt::dialog(ProcessIdentifier owner) {
    Surface surface;
    surface.kind = SurfaceKind::Alert;
    surface.owner = owner;
    surface.title = "Accessibility Access";
    surface.deliver = [this](Work work) { world_.after(Seconds{0}, std::move(work)); };
    // It may be going because its process was quit already.
    surface.onDismissed = [this] { (void)processes_.quit(bundleIdentifier); };
    return surface;
}

View AccessPrompt::content() {
    const auto close = [this] { stack_.dismiss(shown_); };
    const auto open = [this, close] {
        close();
        openSettings_();
    };
    auto view = tavrin::column(
        {tavrin::symbol("hand.raised.fill", 48, Tone::Accent),
         text("“" + program_.name + "” would like to control this computer using accessibility features.",
              {.style = TextStyle::Heading, .isCentered = true}),
         text("Grant access to this application in Privacy & Security settings, located in System Settings.",
              {.isCentered = true}),
         tavrin::button("Open System Settings", open),
         tavrin::button("Deny", close, {.style = ButtonStyle::Prominent, .isDefault = true})},
        {.padding = 20, .width = contentWidth, .isCentered = true});
    view.keyActions = {{"escape", close}};
    return view;
}

} // namespace mac_model
