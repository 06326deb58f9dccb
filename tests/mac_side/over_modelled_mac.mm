// The scenarios' program on the sources for the real Mac, whose C functions the modelled Mac answers.
//
// These families stay the modelled Mac's: the scheduler, because its time is virtual; presentation, status
// items and screens, because what they show is looked at on the modelled screen; the application and the
// workspace, because the modelled program is another process than this one; text, because GNUstep folds and
// compares otherwise; randomness, because the seed decides; the visibility service, because its framework is
// Apple's alone, and the monitors of events, because the person is the modelled one.
#include "mac_side/shim/answering_mac.h"
#include "platform/application.h"
#include "platform/macos/input/events.h"
#include "platform/macos/input/hot_keys.h"
#include "platform/macos/input/keyboard.h"
#include "platform/macos/system/accessibility.h"
#include "platform/macos/system/defaults.h"
#include "platform/macos/system/login_item.h"
#include "platform/macos/system/window_server.h"
#include "support/program_platform.h"

#include <memory>
#include <utility>

namespace mac_model {

namespace {

namespace macos = tavrin::macos;

class MacSideOver {
  public:
    explicit MacSideOver(tavrin::Platform& modelled)
        : answers_(modelled)
        , accessibility_(modelled.scheduler)
        , hotKeys_(modelled.scheduler)
        , keyboard_(modelled.scheduler)
        , platform_{.scheduler = modelled.scheduler,
                    .application = modelled.application,
                    .accessibility = accessibility_,
                    .defaults = defaults_,
                    .eventMonitors = modelled.eventMonitors,
                    .events = events_,
                    .hotKeys = hotKeys_,
                    .keyboard = keyboard_,
                    .loginItem = loginItem_,
                    .presentation = modelled.presentation,
                    .randomness = modelled.randomness,
                    .screens = modelled.screens,
                    .statusItems = modelled.statusItems,
                    .text = modelled.text,
                    .visibilityService = modelled.visibilityService,
                    .windowServer = windowServerFor(modelled),
                    .workspace = modelled.workspace,
                    .updater = modelled.updater} {}

    tavrin::Platform& platform() { return platform_; }

  private:
    /// The private functions are always found in this process, which isn't so on every modelled Mac.
    tavrin::WindowServer& windowServerFor(tavrin::Platform& modelled) {
        return modelled.windowServer.menuBarFunctions() ? windowServer_ : modelled.windowServer;
    }

    AnswersFrom answers_;
    macos::MacAccessibility accessibility_;
    macos::MacDefaults defaults_;
    macos::MacEvents events_;
    macos::MacHotKeys hotKeys_;
    macos::MacKeyboard keyboard_;
    macos::MacLoginItem loginItem_;
    macos::MacWindowServer windowServer_;
    tavrin::Platform platform_;
};

/// The program, with what it stands on.
class OverMacSide final : public tavrin::ApplicationDelegate {
  public:
    OverMacSide(tavrin::Platform& modelled, const ProgramFactory& factory)
        : macSide_(modelled)
        , program_(factory(macSide_.platform())) {}

    void applicationDidFinishLaunching() override { program_->applicationDidFinishLaunching(); }

    bool applicationShouldHandleReopen(bool hasVisibleWindows) override {
        return program_->applicationShouldHandleReopen(hasVisibleWindows);
    }

    bool applicationShouldTerminateAfterLastWindowClosed() override {
        return program_->applicationShouldTerminateAfterLastWindowClosed();
    }

    tavrin::TerminateReply applicationShouldTerminate() override {
        return program_->applicationShouldTerminate();
    }

  private:
    MacSideOver macSide_;
    std::unique_ptr<tavrin::ApplicationDelegate> program_;
};

} // namespace

ProgramFactory onPlatformOfTests(ProgramFactory factory) {
    return [factory = std::move(factory)](tavrin::Platform& modelled) {
        return std::make_unique<OverMacSide>(modelled, factory);
    };
}

} // namespace mac_model
