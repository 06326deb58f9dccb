// The program of the scenarios and of the seam check on the sources for the real Mac, whose frameworks the
// modelled Mac answers for. A few families stay the modelled Mac's own (`familiesOfTheModel` in
// seam_test.mm says which, and why).
#include "mac_side/shim/answering_mac.h"
#include "mac_side/shim/modelled_items.h"
#include "platform/macos/input/event_monitors.h"
#include "platform/macos/input/events.h"
#include "platform/macos/input/hot_keys.h"
#include "platform/macos/input/keyboard.h"
#include "platform/macos/presentation/status_items.h"
#include "platform/macos/system/accessibility.h"
#include "platform/macos/system/application.h"
#include "platform/macos/system/defaults.h"
#include "platform/macos/system/login_item.h"
#include "platform/macos/system/screens.h"
#include "platform/macos/system/text.h"
#include "platform/macos/system/visibility_service.h"
#include "platform/macos/system/window_server.h"
#include "platform/macos/system/workspace.h"
#include "seam/passed_on.h"
#include "support/program_platform.h"

#include <memory>
#include <utility>

namespace mac_model {

namespace {

namespace macos = tavrin::macos;

tavrin::StatusItem* modelledOf(tavrin::StatusItem& item) { return modelledItemOf(macos::buttonOf(item)); }

/// A modelled popover, which stands at a modelled item.
class PopoverOver final : public tavrin::Popover {
  public:
    explicit PopoverOver(std::unique_ptr<tavrin::Popover> modelled) : modelled_(std::move(modelled)) {}

    void setContent(tavrin::View content) override { modelled_->setContent(std::move(content)); }

    void setBehavior(tavrin::PopoverBehavior behavior) override { modelled_->setBehavior(behavior); }

    bool show(tavrin::StatusItem& item, tavrin::Rect area) override {
        auto* modelled = modelledOf(item);
        return modelled && modelled_->show(*modelled, area);
    }

    void close() override { modelled_->close(); }

    bool isShown() const override { return modelled_->isShown(); }

  private:
    std::unique_ptr<tavrin::Popover> modelled_;
};

class PresentationOver final : public tavrin::PassedOnPresentation {
  public:
    using PassedOnPresentation::PassedOnPresentation;

    std::unique_ptr<tavrin::Popover> makePopover(tavrin::PopoverBehavior behavior,
                                                 std::function<void()> onClose) override {
        return std::make_unique<PopoverOver>(truth.makePopover(behavior, std::move(onClose)));
    }

    void popUp(tavrin::Menu menu, tavrin::StatusItem& item, tavrin::Rect area) override {
        if (auto* modelled = modelledOf(item)) truth.popUp(std::move(menu), *modelled, area);
    }
};

class MacSideOver {
  public:
    explicit MacSideOver(tavrin::Platform& modelled)
        : answers_(modelled)
        , application_(modelled.scheduler)
        , accessibility_(modelled.scheduler)
        , eventMonitors_(modelled.scheduler)
        , hotKeys_(modelled.scheduler)
        , keyboard_(modelled.scheduler)
        , presentation_(modelled.presentation)
        , screens_(modelled.scheduler)
        , statusItems_(modelled.scheduler)
        , workspace_(modelled.scheduler)
        , platform_{.scheduler = modelled.scheduler,
                    .application = application_,
                    .accessibility = accessibility_,
                    .defaults = defaults_,
                    .eventMonitors = eventMonitors_,
                    .events = events_,
                    .hotKeys = hotKeys_,
                    .keyboard = keyboard_,
                    .loginItem = loginItem_,
                    .presentation = presentation_,
                    .randomness = modelled.randomness,
                    .screens = screens_,
                    .statusItems = statusItems_,
                    .text = text_,
                    .visibilityService = visibilityServiceFor(modelled),
                    .windowServer = windowServerFor(modelled),
                    .workspace = workspace_,
                    .updater = modelled.updater} {}

    tavrin::Platform& platform() { return platform_; }

  private:
    /// The private functions are always found in this process, which isn't so on every modelled Mac.
    tavrin::WindowServer& windowServerFor(tavrin::Platform& modelled) {
        return modelled.windowServer.menuBarFunctions() ? windowServer_ : modelled.windowServer;
    }

    /// Nor is it so of the private framework.
    tavrin::VisibilityService& visibilityServiceFor(tavrin::Platform& modelled) {
        return modelled.visibilityService.isAvailable() ? visibilityService_ : modelled.visibilityService;
    }

    AnswersFrom answers_;
    macos::MacApplication application_;
    macos::MacAccessibility accessibility_;
    macos::MacDefaults defaults_;
    macos::MacEventMonitors eventMonitors_;
    macos::MacEvents events_;
    macos::MacHotKeys hotKeys_;
    macos::MacKeyboard keyboard_;
    macos::MacLoginItem loginItem_;
    PresentationOver presentation_;
    macos::MacScreens screens_;
    macos::MacStatusItems statusItems_;
    macos::MacText text_;
    macos::MacVisibilityService visibilityService_;
    macos::MacWindowServer windowServer_;
    macos::MacWorkspace workspace_;
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

    void applicationShowSettings() override { program_->applicationShowSettings(); }

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
