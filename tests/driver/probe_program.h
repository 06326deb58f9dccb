#pragma once

#include "platform/accessibility.h"
#include "platform/application.h"
#include "platform/platform.h"
#include "platform/presentation.h"
#include "platform/status_items.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace mac_model {

/// A small program for tests of the Mac around it: one status item, and whatever the test makes it show.
struct Probe {
    tavrin::Platform* platform = nullptr;
    std::unique_ptr<tavrin::StatusItem> item;
    std::unique_ptr<tavrin::Popover> popover;
    std::unique_ptr<tavrin::Window> window;
    std::unique_ptr<tavrin::Alert> alert;
    std::vector<std::string> log;

    std::function<void()> logs(std::string what) {
        return [this, what] { log.push_back(what); };
    }

    void forget() {
        alert.reset();
        window.reset();
        popover.reset();
        item.reset();
        platform = nullptr;
    }
};

class ProbeDelegate final : public tavrin::ApplicationDelegate {
  public:
    ProbeDelegate(Probe& probe, tavrin::Platform& platform) : probe_(probe) { probe_.platform = &platform; }

    ~ProbeDelegate() override { probe_.forget(); }

    void applicationDidFinishLaunching() override {
        probe_.item = probe_.platform->statusItems.create(40);
        probe_.item->setAccessibilityLabel("Probe");
        probe_.item->setAction([this](tavrin::StatusItemPress press) {
            probe_.log.push_back(press == tavrin::StatusItemPress::Left ? "left" : "right");
        });
    }

    bool applicationShouldHandleReopen(bool hasVisibleWindows) override {
        probe_.log.push_back(hasVisibleWindows ? "reopened with windows" : "reopened");
        return true;
    }

    bool applicationShouldTerminateAfterLastWindowClosed() override {
        probe_.log.push_back("last window closed");
        return false;
    }

    tavrin::TerminateReply applicationShouldTerminate() override { return tavrin::TerminateReply::Now; }

  private:
    Probe& probe_;
};

} // namespace mac_model
