#include "discovery/hosted/menu_bar_agent_scanner.h"
#include "seam/system/text_icu.h"
#include "support/fake_accessibility.h"

#include <gtest/gtest.h>

namespace tavrin {
namespace {

constexpr ProcessIdentifier agent = 648;
constexpr ProcessIdentifier controlCenter = 624;
constexpr ProcessIdentifier own = 900;
constexpr ProcessIdentifier notes = 701;
constexpr int window = 9000;

/// A tree of the agent's as the test builds it.
class AgentScannerTest : public testing::Test {
  protected:
    AgentScannerTest() {
        ax.nodes[agent].attributes["AXWindows"] = std::vector{FakeAccessibility::element(window)};
        ax.nodes[window].attributes["AXRole"] = "AXWindow";
    }

    /// Puts an element into the window; `owner` 0 leaves open whose it is.
    void put(int number, ProcessIdentifier owner, double x, const std::string& identifier = "",
             const std::string& label = "") {
        ax.makeItem(number, x, identifier);
        if (!label.empty()) ax.nodes[number].attributes["AXTitle"] = label;
        if (owner != 0) ax.owners[number] = owner;
        children.push_back(number);
        ax.setChildren(window, children);
    }

    std::optional<MenuBarAgentScanResult> scan() {
        ax.messages = 0;
        return MenuBarAgentScanner(ax, *text).scan(agent, own, applications);
    }

    std::vector<std::string> identifiers() {
        std::vector<std::string> found;
        for (const auto& item : scan()->items) found.push_back(item.id);
        return found;
    }

    static RunningApplicationSnapshot running(const std::string& bundle, ProcessIdentifier process,
                                              const std::string& name) {
        return {.bundleIdentifier = bundle, .processIdentifier = process, .localizedName = name};
    }

    std::unique_ptr<Text> text = mac_model::makeIcuText();
    FakeAccessibility ax;
    std::vector<int> children;
    MenuBarAgentScanner::Applications applications{
        {controlCenter, running("com.apple.controlcenter", controlCenter, "Control Center")},
        {notes, running("org.example.notes", notes, "Notes")},
        {702, running("org.example.zebra", 702, "zebra")}};
};

TEST_F(AgentScannerTest, controlCentersExtrasComeLastUnderTheSystemsName) {
    put(1, controlCenter, 500, "com.apple.menuextra.Clock");
    put(2, controlCenter, 400, "com.apple.menuextra.now-playing");
    put(3, notes, 300, "notes-item", "Zettel");
    put(4, 702, 200, "", "Apfel");
    put(5, controlCenter, 100, "", "Wi-Fi, 3 bars");
    const auto result = *scan();
    std::vector<std::string> told;
    for (const auto& item : result.items)
        told.push_back(item.name + "|" + item.applicationName + "|" + item.id);
    EXPECT_EQ(told,
              (std::vector<std::string>{
                  "Apfel|zebra|org.example.zebra", "Zettel|Notes|org.example.notes::identifier:notes-item",
                  "Clock|macOS|com.apple.controlcenter::identifier:com.apple.menuextra.clock",
                  "Now Playing|macOS|com.apple.controlcenter::identifier:com.apple.menuextra.now-playing",
                  "Wi-Fi|macOS|com.apple.controlcenter::identifier:com.apple.menuextra.wifi"}));
    EXPECT_EQ(result.clockFrames, std::vector{(Rect{500, 7, 24, 24})});
    EXPECT_EQ(ax.messages, 1 + 1 + 5) << "the windows, the window and each item";
}

TEST_F(AgentScannerTest, ownItemsAreCountedAndNotListed) {
    put(1, own, 300);
    put(2, own, 200);
    ax.nodes[2].attributes["AXSize"] = Size{0, 0}; // behind the button for what finds no room
    put(3, notes, 100);
    EXPECT_EQ(identifiers(), std::vector<std::string>{"org.example.notes"});
    EXPECT_EQ(scan()->ownItemCount, 1);
}

TEST_F(AgentScannerTest, whatTheAgentAnswersForItselfIsTheSystemsOnlyByIdentifier) {
    put(1, agent, 400, "com.apple.menuextra.wifi");
    put(2, 0, 300, "com.apple.menuextra.battery");
    put(3, agent, 200, "", "Sound");
    put(4, agent, 100, "org.example.somebodys");
    EXPECT_EQ(identifiers(),
              (std::vector<std::string>{"com.apple.controlcenter::identifier:com.apple.menuextra.battery",
                                        "com.apple.controlcenter::identifier:com.apple.menuextra.wifi"}));
    EXPECT_EQ(scan()->items.front().processIdentifier, controlCenter);
}

TEST_F(AgentScannerTest, anOwnerThatHangsCostsOneTimeOutAndItsItems) {
    put(1, notes, 400);
    put(2, notes, 370);
    put(3, 702, 340);
    put(4, 555, 310); // of nobody that is known
    ax.nodes[1].error = ax.nodes[2].error = AccessibilityError::CannotComplete;
    EXPECT_EQ(identifiers(), std::vector<std::string>{"org.example.zebra"});
    EXPECT_EQ(ax.messages, 1 + 1 + 3) << "the hung owner's second item isn't asked";
}

TEST_F(AgentScannerTest, anAgentThatCantBeReadTellsNothing) {
    put(1, notes, 400);
    for (const int silent : {int(agent), window}) {
        ax.nodes[silent].error = AccessibilityError::CannotComplete;
        EXPECT_FALSE(scan());
        ax.nodes[silent].error = std::nullopt;
    }
    ax.nodes[1].error = AccessibilityError::ApiDisabled;
    EXPECT_FALSE(scan()) << "access was taken away";
    AbandonFlag abandoned;
    abandoned.raise();
    EXPECT_FALSE(MenuBarAgentScanner(ax, *text).scan(agent, own, applications, abandoned));
}

TEST_F(AgentScannerTest, hostileTreesEnd) {
    put(1, notes, 400);
    ax.setChildren(window, {window, 2, 1, 1});
    ax.nodes[2].attributes["AXRole"] = "AXGroup";
    ax.setChildren(2, {window, 2, 3});
    for (int i = 3; i < 3000; ++i) ax.setChildren(i, {i + 1});
    EXPECT_EQ(identifiers(), std::vector<std::string>{"org.example.notes"});
    EXPECT_LE(ax.messages, 1 + 512);
    for (int i = 10'000; i < 12'000; ++i) put(i, notes, i - 9000);
    EXPECT_LE(identifiers().size(), 512U);
    EXPECT_LE(ax.messages, 1 + 512);
}

TEST_F(AgentScannerTest, anItemIsFoundAgainByNameThenByPlace) {
    put(1, notes, 400, "a");
    put(2, notes, 300, "b");
    put(3, 702, 200);
    put(4, 702, 100);
    put(5, agent, 50);
    const MenuBarAgentScanner scanner(ax, *text);
    const auto numberOf = [&](MenuBarItemSnapshot item) {
        const auto found = scanner.resolveElement(item, agent);
        return found ? FakeAccessibility::number(found->element) : 0;
    };
    MenuBarItemSnapshot item;
    item.bundleIdentifier = "org.example.notes";
    item.processIdentifier = notes;
    item.accessibilityIdentifier = "b";
    item.frame = {700, 7, 24, 24};
    EXPECT_EQ(numberOf(item), 2) << "wherever it stands by now";
    item.bundleIdentifier = "org.example.zebra";
    item.processIdentifier = 702;
    item.accessibilityIdentifier.reset();
    EXPECT_EQ(numberOf(item), 0);
    item.frame = {102, 7, 24, 24};
    EXPECT_EQ(numberOf(item), 4);
    item.frame = {52, 7, 24, 24};
    EXPECT_EQ(numberOf(item), 5) << "the agent's own element can be anybody's";
    ax.nodes[agent].error = AccessibilityError::CannotComplete;
    EXPECT_EQ(numberOf(item), 0);
}

} // namespace
} // namespace tavrin
