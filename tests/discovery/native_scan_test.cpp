#include "desktop/desktop_loader.h"
#include "discovery/hosted/native_scan.h"
#include "support/mac_fixture.h"
#include "support/tavrin_mac.h"

#include <map>

namespace tavrin {
namespace {

using mac_model::AgentLabels;
using mac_model::AgentOwners;
using mac_model::AgentTree;
using mac_model::OverflowFrame;

constexpr auto agentBundle = "com.apple.MenuBarAgent";

/// Scans the menu bar of the desktop that ships, which is too full, with an item of this program in it.
class NativeScanTest : public mac_model::MacTest {
  protected:
    NativeScanTest() {
        auto desktop = mac_model::parseDesktopFile(mac_model::shippedDesktop("macos-27"), "macos-27").value();
        desktop.defaults[agentBundle]["NSStatusItem Preferred Position org.example.program Own"] = 390;
        bootAndStart(std::move(desktop));
        item = makeItem("Own", 26);
    }

    std::vector<RunningApplicationSnapshot> applications() {
        std::vector<RunningApplicationSnapshot> found;
        for (const auto& running : platform().workspace.runningApplications())
            if (running.bundleIdentifier && *running.bundleIdentifier != programBundle)
                found.push_back({.bundleIdentifier = *running.bundleIdentifier,
                                 .processIdentifier = running.processIdentifier,
                                 .localizedName = running.localizedName,
                                 .isRegular = running.isRegular});
        return found;
    }

    AccessibilityMenuBarScanner owners() {
        const auto& p = platform();
        return {p.scheduler, p.accessibility, p.defaults, p.workspace, p.text};
    }

    ScanResult scan() {
        const auto& p = platform();
        const NativeScan scanner(owners(), MenuBarAgentScanner(p.accessibility, p.text),
                                 p.application.processIdentifier());
        return scanner.scan(applications(), 0, {}).value();
    }

    std::map<std::string, Rect> frames() {
        std::map<std::string, Rect> found;
        for (const auto& snapshot : scan().items) found[snapshot.id] = snapshot.frame;
        return found;
    }

    static void drop(std::map<std::string, Rect>& frames, double leftOf) {
        std::erase_if(frames, [=](const auto& entry) { return entry.second.x < leftOf; });
    }

    template <class Change>
    void setModel(const Change& change) {
        auto model = mac->uncertainties();
        change(model);
        mac->setUncertainties(model);
        settle();
    }

    std::size_t messages() {
        std::size_t all = 0;
        for (const auto& [_, count] : mac->statistics().messages) all += count;
        return all;
    }

    std::unique_ptr<StatusItem> item;
};

TEST_F(NativeScanTest, findsTheSameUnderEveryShapeOfTheAgentsTree) {
    const auto expected = frames();
    EXPECT_EQ(expected.size(), 6 + 1 + 4U) << "Control Center's, Spotlight and four more find room";
    EXPECT_TRUE(expected.contains("com.apple.controlcenter::identifier:com.apple.menuextra.wifi"));
    EXPECT_TRUE(expected.contains("com.sample.clipboard-shelf"));
    for (const auto tree : {AgentTree::Flat, AgentTree::Grouped, AgentTree::Proxied})
        for (const auto owners : {AgentOwners::Owner, AgentOwners::Agent})
            for (const auto labels : {AgentLabels::None, AgentLabels::Title, AgentLabels::Description})
                for (const auto hidden : {OverflowFrame::Zero, OverflowFrame::Parked, OverflowFrame::Stale}) {
                    SCOPED_TRACE(testing::Message()
                                 << int(tree) << int(owners) << int(labels) << int(hidden));
                    setModel([&](auto& model) {
                        model.agentTree = tree;
                        model.agentOwners = owners;
                        model.agentLabels = labels;
                        model.overflowFrame = hidden;
                    });
                    auto found = frames();
                    drop(found, 0); // those that are said to be parked left of the screen
                    EXPECT_EQ(found, expected);
                    const auto result = scan();
                    EXPECT_EQ(result.ownItemCount, owners == AgentOwners::Owner ? 1 : 0);
                    ASSERT_EQ(result.clockFrames.size(), 1U);
                    EXPECT_EQ(result.clockFrames.front().maxX(), 1512);
                }
}

TEST_F(NativeScanTest, whatTheAgentDoesntListIsNotInTheBar) {
    setModel([](auto& model) { model.overflowFrame = OverflowFrame::Stale; });
    const auto before = frames();
    const auto full = before.size();
    mac->visibility().activate(item ? platform().application.processIdentifier() : 0,
                               {{2, 8}, {programBundle, "org.example.notes"}}, [](const auto&) {});
    settle();
    const auto left = frames();
    EXPECT_EQ(left.size(), 3U) << "clock, Control Center and notes, of " << full;
    EXPECT_NE(left.at("org.example.notes::identifier:notes-item"),
              before.at("org.example.notes::identifier:notes-item"))
        << "the others close ranks";
}

TEST_F(NativeScanTest, withoutTheAgentsWordTheApplicationsAreBelieved) {
    const auto expected = frames();
    ASSERT_TRUE(mac->processes().hang(agentBundle));
    const auto before = scheduler.now();
    auto result = scan();
    EXPECT_LT((scheduler.now() - before).count(), 0.7) << "a hung agent costs one time-out";
    EXPECT_FALSE(result.ownItemCount);
    EXPECT_TRUE(result.clockFrames.empty());
    EXPECT_EQ(frames(), expected);
    ASSERT_TRUE(mac->processes().quit(agentBundle));
    settle();
    EXPECT_EQ(frames(), expected) << "the owners know nothing of it";
    auto again = mac_model::applicationSpec(agentBundle, 0);
    ASSERT_TRUE(mac->processes().launch(again));
    settle();
    EXPECT_EQ(frames(), expected);
    EXPECT_EQ(scan().ownItemCount, 1);
}

TEST_F(NativeScanTest, anOwnerThatHangsIsTold) {
    ASSERT_TRUE(mac->processes().hang("org.example.notes"));
    const auto result = scan();
    EXPECT_EQ(result.unanswered, std::vector<ProcessIdentifier>{701});
    EXPECT_EQ(result.items.size(), 10U);
}

TEST_F(NativeScanTest, asksEachElementOnce) {
    auto others = applications();
    std::erase_if(others, [](const auto& application) {
        return application.bundleIdentifier == agentBundle ||
               application.bundleIdentifier == "com.apple.controlcenter";
    });
    const auto begun = messages();
    (void)owners().scan(others, 0);
    const auto ofOwners = messages() - begun;
    (void)scan();
    // Of the agent: its windows, the window, 18 items and the button for those that find no room.
    EXPECT_EQ(messages() - begun, 2 * ofOwners + 1 + 1 + 18 + 1);
}

TEST_F(NativeScanTest, theWindowOfTheFullestDisplayCounts) {
    auto screens = mac->screens().screens();
    screens.push_back(mac_model::screenSpec({1512, 0, 2560, 1440}));
    mac->screens().set(screens);
    settle();
    const auto found = frames();
    EXPECT_EQ(found.size(), 16U) << "all but the one without Accessibility find room on the second";
    EXPECT_EQ(scan().clockFrames.size(), 2U);
    EXPECT_EQ(scan().ownItemCount, 1);
}

} // namespace
} // namespace tavrin
