#include "driver/probe_program.h"
#include "platform/application.h"
#include "support/tavrin_mac.h"
#include "views/view_builders.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace mac_model {
namespace {

using tavrin::View;
using Log = std::vector<std::string>;

/// A window with two lists in a Scroll, whose rows can be moved from one to the other.
class DragAndDrop : public ::testing::Test {
  protected:
    DragAndDrop()
        : mac({.program = [this](tavrin::Platform& platform) {
            return std::make_unique<ProbeDelegate>(probe, platform);
        }}) {
        mac.settle();
        probe.window = probe.platform->presentation.makeWindow("Lists", probe.logs("closed"));
        render();
        probe.window->makeKeyAndOrderFront();
        probe.platform->application.activateIgnoringOthers();
        mac.settle();
    }

    View rowFor(const std::string& name) {
        auto row = tavrin::row({tavrin::symbol("star", 16), tavrin::text(name), tavrin::spacer(),
                                tavrin::button("Move", probe.logs("pressed " + name))},
                               {.padding = 4});
        row.accessibilityLabel = name;
        row.dragValue = "value of " + name;
        row.isFocusable = true;
        row.contextMenu = {{"Swap", [this, name] { move(name); }}};
        row.keyActions = {{"right", [this, name] { move(name); }}};
        return row;
    }

    View listFor(const std::string& title) {
        std::vector<View> rows{tavrin::text(title)};
        for (const auto& name : lists[title]) rows.push_back(rowFor(name));
        auto list = tavrin::card(std::move(rows), {.padding = 10});
        list.isHighlighted = targeted == title;
        list.onDragOver = [this, title](bool isOver) {
            probe.log.push_back((isOver ? "over " : "left ") + title);
            targeted = isOver ? title : "";
            render();
        };
        list.onDrop = [this, title](const std::string& value) {
            probe.log.push_back(value + " on " + title);
        };
        return list;
    }

    void render() {
        auto scroll =
            tavrin::scroll(tavrin::column({listFor("Left"), listFor("Right")}, {.width = 260}), 300);
        auto done = tavrin::button("Done", probe.logs("done"), {.isDefault = true});
        probe.window->setContent(tavrin::column({scroll, done}, {.padding = 20}));
    }

    void move(const std::string& name) {
        for (auto& [title, names] : lists)
            if (std::erase(names, name) == 0) names.push_back(name);
        render();
    }

    tavrin::Point middle(const std::string& text) {
        const auto frame = mac.find(text).at(0)["frame"];
        return {frame[0].get<double>() + frame[2].get<double>() / 2,
                frame[1].get<double>() + frame[3].get<double>() / 2};
    }

    void down(const std::string& text) {
        const auto at = middle(text);
        mac.done({{"do", "down"}, {"at", {at.x, at.y}}});
    }

    void moveBy(double dx, double dy) {
        const auto at = mac.look()["pointer"]["at"];
        mac.done({{"do", "move"}, {"at", {at[0].get<double>() + dx, at[1].get<double>() + dy}}});
    }

    void moveOver(const std::string& text) {
        const auto at = middle(text);
        mac.done({{"do", "move"}, {"at", {at.x, at.y}}});
    }

    void key(const std::string& name, const json& modifiers = json::array()) {
        mac.done({{"do", "key"}, {"key", name}, {"modifiers", modifiers}});
    }

    /// The name that "look" gives the focused view; empty without one.
    std::string focused(const json& node) {
        if (node.value("focused", false)) return node.value("text", "?");
        for (const auto& child : node.value("children", json::array()))
            if (auto found = focused(child); !found.empty()) return found;
        return {};
    }

    std::string focused() { return focused(mac.surfacesOf(tavrinBundle).at(0)); }

    bool isDragging() {
        const auto surfaces = mac.look()["surfaces"];
        return !surfaces.empty() && surfaces.back()["kind"] == "drag";
    }

    Log takeLog() { return std::exchange(probe.log, {}); }

    std::string lastOfLog() {
        const auto log = takeLog();
        return log.empty() ? "" : log.back();
    }

    Probe probe;
    std::map<std::string, std::vector<std::string>> lists{{"Left", {"a", "b", "c"}}, {"Right", {"d"}}};
    std::string targeted;
    TavrinMac mac;
};

TEST_F(DragAndDrop, carriesARowWithItsPreviewThroughNewRenderings) {
    down("b");
    moveBy(0, 4);
    EXPECT_FALSE(isDragging());
    moveBy(0, 1);
    ASSERT_TRUE(isDragging());
    moveOver("Right");
    const auto look = mac.look();
    const auto preview = look["surfaces"].back();
    const auto parts = preview["children"][0]["children"];
    EXPECT_EQ(parts[0]["symbol"], "star");
    EXPECT_EQ(parts[1]["text"], "b");
    EXPECT_FALSE(preview["key"]);
    const tavrin::Rect frame{preview["frame"][0], preview["frame"][1], preview["frame"][2],
                             preview["frame"][3]};
    EXPECT_TRUE(frame.contains({look["pointer"]["at"][0], look["pointer"]["at"][1]}));
    EXPECT_EQ(takeLog(), (Log{"over Left", "left Left", "over Right"}));
    EXPECT_EQ(look["surfaces"].dump().find(R"("highlighted":true)") != std::string::npos, true);
    mac.done({{"do", "up"}});
    EXPECT_EQ(takeLog(), (Log{"left Right", "value of b on Right"}));
    EXPECT_FALSE(isDragging());

    mac.done({{"do", "drag"}, {"text", "d"}, {"onto", "Left"}});
    EXPECT_EQ(lastOfLog(), "value of d on Left");
}

TEST_F(DragAndDrop, endsWithoutADrop) {
    const std::vector<std::pair<std::string, std::function<void()>>> ends{
        {"escape", [this] { key("escape"); }},
        {"beside", [this] { mac.done({{"do", "up"}, {"at", {5, 500}}}); }},
        {"another button", [this] { mac.done({{"do", "down"}, {"at", {5, 500}}, {"button", "right"}}); }}};
    for (const auto& [name, end] : ends) {
        down("b");
        moveOver("Right");
        takeLog();
        end();
        EXPECT_EQ(takeLog(), Log{"left Right"}) << name;
        EXPECT_FALSE(isDragging()) << name;
        mac.done({{"do", "up"}});
        EXPECT_EQ(takeLog(), Log{}) << name;
    }
    const auto button = mac.find("Move").at(1)["frame"];
    const double x = button[0].get<double>() + 5;
    const double y = button[1].get<double>() + 5;
    mac.done({{"do", "drag"}, {"from", {x, y}}, {"to", {x, y + 9}}});
    EXPECT_EQ(takeLog(), Log{"pressed b"}) << "a press of a button drags nothing";
    EXPECT_EQ(focused(), "b") << "where the row was pressed";
}

TEST_F(DragAndDrop, survivesTheEndOfWhatItCameFrom) {
    down("b");
    moveOver("Right");
    probe.window->close();
    moveBy(20, 20);
    ASSERT_TRUE(isDragging()) << "what is carried has left its window";
    mac.done({{"do", "up"}});
    EXPECT_EQ(takeLog(), (Log{"over Right", "closed", "last window closed", "left Right"}));

    probe.window->makeKeyAndOrderFront();
    down("b");
    moveOver("Right");
    mac.crash();
    mac.settle();
    takeLog();
    EXPECT_FALSE(isDragging());
    moveBy(9, 9);
    mac.done({{"do", "up"}});
    EXPECT_EQ(takeLog(), Log{});
}

TEST_F(DragAndDrop, scrollsToWhatIsOutOfSight) {
    for (int i = 0; i < 40; ++i) lists["Left"].push_back("row " + std::to_string(i));
    render();
    mac.done({{"do", "drag"}, {"text", "a"}, {"onto", "Right"}});
    EXPECT_EQ(lastOfLog(), "value of a on Right");
    mac.done({{"do", "drag"}, {"text", "row 39"}, {"onto", "Left"}});
    EXPECT_EQ(lastOfLog(), "value of row 39 on Left");
}

TEST_F(DragAndDrop, refusesInASentence) {
    lists["Right"].push_back("a");
    render();
    const std::vector<std::pair<json, std::string>> cases{
        {{{"text", "z"}, {"onto", "Right"}}, "there is \"a\", \"b\""},
        {{{"text", "b"}, {"onto", "Middle"}}, "there is \"Left\", \"Right\""},
        {{{"text", "a"}, {"onto", "Right"}}, "several"},
        {{{"text", "b"}, {"onto", "c"}}, "nothing"},
        {{{"text", "b"}}, "/onto"},
        {{{"text", "b"}, {"onto", "Right"}, {"to", {1, 2}}}, "/to"}};
    for (auto [command, part] : cases) {
        command["do"] = "drag";
        EXPECT_NE(mac.refused(command).find(part), std::string::npos) << command << mac.refused(command);
    }
    const auto error = mac.refused({{"do", "perform"}, {"text", "b"}, {"action", "Eat"}});
    EXPECT_NE(error.find("\"Swap\""), std::string::npos) << error;
    EXPECT_EQ(takeLog(), Log{});
}

TEST_F(DragAndDrop, aClickThatIsRefusedHasScrolledNothing) {
    for (int i = 0; i < 40; ++i) lists["Left"].push_back("row " + std::to_string(i));
    render();
    std::vector<View> lines;
    for (int i = 0; i < 45; ++i) lines.push_back(tavrin::text("cover"));
    probe.popover =
        probe.platform->presentation.makePopover(tavrin::PopoverBehavior::ApplicationDefined, [] {});
    probe.popover->setContent(tavrin::column(std::move(lines), {.width = 1400}));
    ASSERT_TRUE(probe.popover->show(*probe.item, *probe.item->frame()));
    const auto before = mac.look()["surfaces"];
    const auto error = mac.refused({{"do", "click"}, {"text", "row 39"}});
    EXPECT_NE(error.find("something covers it"), std::string::npos) << error;
    EXPECT_EQ(mac.look()["surfaces"], before);
}

TEST_F(DragAndDrop, actionsMoveARowToo) {
    mac.done({{"do", "perform"}, {"text", "a"}, {"action", "Swap"}});
    mac.done({{"do", "click"}, {"text", "b"}, {"button", "right"}});
    mac.press("Swap");
    mac.done({{"do", "menu"}, {"path", {"d", "Swap"}}});
    EXPECT_EQ(lists["Left"], (Log{"c", "d"}));
    EXPECT_EQ(lists["Right"], (Log{"a", "b"}));
}

TEST_F(DragAndDrop, theKeyboardReachesEverything) {
    EXPECT_EQ(focused(), "");
    Log order;
    for (int i = 0; i < 10; ++i) {
        key("tab");
        order.push_back(focused());
    }
    EXPECT_EQ(order, (Log{"a", "Move", "b", "Move", "c", "Move", "d", "Move", "Done", "a"}));
    key("tab", {"shift"});
    EXPECT_EQ(focused(), "Done");
    key("space");
    key("tab");
    key("tab");
    key("space"); // on the button in row a
    key("return");
    EXPECT_EQ(takeLog(), (Log{"done", "pressed a", "done"}));

    key("down");
    EXPECT_EQ(focused(), "b");
    key("right"); // moves b; c stands in its place
    EXPECT_EQ(focused(), "c");
    key("right");
    EXPECT_EQ(focused(), "a") << "the nearest row when none is left in that place";
    EXPECT_EQ(lists["Right"], (Log{"d", "b", "c"}));

    for (int i = 0; i < 30; ++i) lists["Right"].push_back("row " + std::to_string(i));
    render();
    for (int i = 0; i < 40; ++i) key("down");
    EXPECT_EQ(focused(), "row 29") << "on through the other list to its end";
    const auto scroll = mac.surfacesOf(tavrinBundle).at(0)["children"][1]["children"][0];
    EXPECT_EQ(scroll["value"], scroll["scrollMax"].get<double>() - 10) << "all but the padding below it";
}

} // namespace
} // namespace mac_model
