#pragma once

#include "concurrency/job.h"
#include "movement/menu_bar_item_mover.h"
#include "support/fake_accessibility.h"
#include "support/fake_events.h"
#include "support/fake_window_server.h"
#include "support/mac_fixture.h"

#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavrin {

using Lines = std::vector<std::string>;

/// Applications with one item each, whose places the test decides, and a mover that acts on them. Everything
/// else is a modelled Mac.
class MovingTest : public mac_model::MacTest {
  protected:
    static constexpr int itemNode = 10'000; // plus the process identifier

    void boot(mac_model::DesktopFile desktop = mac_model::plainDesktop()) {
        bootAndStart(std::move(desktop));
        auto& platform = this->platform();
        queue = scheduler.makeSerialQueue("org.example.move");
        const AccessibilityMenuBarScanner scanner(scheduler, accessibility, platform.defaults,
                                                  platform.workspace, platform.text);
        reader.emplace(accessibility, scanner, *queue);
        mover.emplace(events, accessibility, *reader, bridge);
    }

    MenuBarItemSnapshot place(int process, double x, double width = 28) {
        const int bar = 5000 + process;
        const int item = itemNode + process;
        accessibility.nodes[process].attributes["AXExtrasMenuBar"] = FakeAccessibility::element(bar);
        accessibility.nodes[bar].attributes["AXRole"] = "AXMenuBar";
        accessibility.setChildren(bar, {item});
        accessibility.nodes[item].attributes["AXRole"] = "AXMenuBarItem";
        accessibility.nodes[item].attributes["AXPosition"] = Point{x, 3};
        accessibility.nodes[item].attributes["AXSize"] = Size{width, 24};
        MenuBarItemSnapshot snapshot;
        snapshot.id = snapshot.bundleIdentifier = bundleOf(process);
        snapshot.processIdentifier = process;
        return snapshot;
    }

    static std::string bundleOf(int process) { return "org.example.p" + std::to_string(process); }

    void remove(int process) { accessibility.nodes.erase(process); }

    template <class T>
    std::optional<T> finish(Task<T> task) {
        auto job = start(scheduler, std::move(task));
        std::optional<T> result;
        auto keeping = start(scheduler, keep(&job, &result));
        EXPECT_TRUE(scheduler.settle(Seconds{120}));
        return result;
    }

    FakeAccessibility accessibility;
    FakeWindowServer windowServer;
    FakeEvents events{scheduler};
    std::unique_ptr<SerialQueue> queue;
    WindowServerStatusItemBridge bridge{events, windowServer};
    std::optional<MenuBarItemReader> reader;
    std::optional<MenuBarItemMover> mover;

  private:
    template <class T>
    static Task<> keep(Job<T>* job, std::optional<T>* result) {
        *result = co_await job->result();
    }
};

} // namespace tavrin
