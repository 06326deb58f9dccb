#pragma once

#include "concurrency/virtual_scheduler.h"
#include "mac/mac.h"
#include "platform/presentation.h"
#include "platform/screens.h"
#include "platform/workspace.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace mac_model {

/// Shows nothing; these tests are about the parts below the surfaces.
class BlankPresentation final : public tavrin::Presentation {
  public:
    std::unique_ptr<tavrin::Popover> makePopover(tavrin::PopoverBehavior, std::function<void()>) override {
        return nullptr;
    }

    std::unique_ptr<tavrin::Window> makeWindow(std::string, std::function<void()>) override {
        return nullptr;
    }

    std::unique_ptr<tavrin::Panel> makePanel() override { return nullptr; }

    std::unique_ptr<tavrin::Alert> showAlert(tavrin::AlertQuestion,
                                             std::function<void(std::size_t)>) override {
        return nullptr;
    }

    void popUp(tavrin::Menu, tavrin::StatusItem&, tavrin::Rect) override {}
};

/// A program that notes each request and does as the test tells it.
struct ScriptedProgram {
    tavrin::Platform* platform = nullptr;
    tavrin::TerminateReply reply = tavrin::TerminateReply::Now;
    std::function<void(tavrin::Platform&)> onDestruction;
    std::vector<std::string> log;
};

class ScriptedDelegate final : public tavrin::ApplicationDelegate {
  public:
    ScriptedDelegate(ScriptedProgram& program, tavrin::Platform& platform)
        : program_(program)
        , platform_(platform) {
        program_.platform = &platform;
    }

    ~ScriptedDelegate() override {
        if (program_.onDestruction) program_.onDestruction(platform_);
        program_.platform = nullptr;
        program_.log.push_back("destroyed");
    }

    void applicationDidFinishLaunching() override { program_.log.push_back("launched"); }

    bool applicationShouldHandleReopen(bool) override {
        program_.log.push_back("reopened");
        return true;
    }

    bool applicationShouldTerminateAfterLastWindowClosed() override { return false; }

    tavrin::TerminateReply applicationShouldTerminate() override {
        program_.log.push_back("asked");
        return program_.reply;
    }

  private:
    ScriptedProgram& program_;
    tavrin::Platform& platform_;
};

inline StatusItemSpec itemSpec(const std::string& name, double width, std::optional<double> position) {
    StatusItemSpec spec;
    spec.autosaveName = name;
    spec.identifier = name;
    spec.width = width;
    spec.preferredPosition = position;
    return spec;
}

inline ApplicationSpec applicationSpec(const std::string& bundle, int process,
                                       std::vector<StatusItemSpec> items = {}) {
    ApplicationSpec application;
    application.bundleIdentifier = bundle;
    application.name = bundle;
    application.processIdentifier = process;
    application.policy = Policy::Accessory;
    application.statusItems = std::move(items);
    return application;
}

inline ScreenSpec screenSpec(tavrin::Rect frame, double barHeight = 30) {
    ScreenSpec screen;
    screen.frame = frame;
    screen.menuBarHeight = barHeight;
    return screen;
}

inline DesktopFile plainDesktop() {
    DesktopFile desktop;
    desktop.screens = {screenSpec({0, 0, 1512, 982})};
    desktop.accessibilityTrusted = true;
    desktop.model.placement = Placement::Prompt;
    return desktop;
}

class MacTest : public testing::Test {
  protected:
    static constexpr auto programBundle = "org.example.program";

    void boot(DesktopFile desktop, std::optional<std::filesystem::path> profile = std::nullopt) {
        mac.reset();
        MacOptions options{
            std::move(desktop), std::move(profile), 0, {programBundle, "Program", "Version 1"}};
        auto created = Mac::create(scheduler, std::move(options));
        ASSERT_TRUE(created) << created.error();
        mac = std::move(*created);
        const auto make = [this](tavrin::Platform& platform) {
            return std::make_unique<ScriptedDelegate>(program, platform);
        };
        mac->program().install(make, presentation);
    }

    void bootAndStart(DesktopFile desktop, std::optional<std::filesystem::path> profile = std::nullopt) {
        boot(std::move(desktop), std::move(profile));
        mac->program().start();
        settle();
    }

    void settle() { ASSERT_TRUE(scheduler.settle(tavrin::Seconds{30})); }

    tavrin::Platform& platform() { return *program.platform; }

    std::unique_ptr<tavrin::StatusItem> makeItem(const std::string& name, double length) {
        auto item = platform().statusItems.create(length);
        item->setAutosaveName(name);
        settle();
        return item;
    }

    void storePosition(const std::string& name, double position) {
        mac->preferences().set(mac->programDomain(), "NSStatusItem Preferred Position " + name, {position});
    }

    std::optional<double> storedPosition(const std::string& name) {
        return mac->preferences().number(mac->programDomain(), "NSStatusItem Preferred Position " + name);
    }

    tavrin::VirtualScheduler scheduler;
    ScriptedProgram program;
    BlankPresentation presentation;
    std::unique_ptr<Mac> mac;
};

} // namespace mac_model
