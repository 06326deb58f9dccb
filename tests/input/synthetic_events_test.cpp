#include "driver/probe_program.h"
#include "platform/events.h"
#include "platform/window_server.h"
#include "support/tavrin_mac.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>

namespace mac_model {
namespace {

using tavrin::EventField;
using tavrin::EventTap;
using tavrin::MouseEvent;
using tavrin::MouseEventType;
using tavrin::Point;
using tavrin::Rect;

/// From right to left: a fixed clock, A, B and C, each 40 wide, then the program's item.
constexpr const char* desktop = R"({
  "macOS": {"major": 26}, "screens": [{"frame": [0, 0, 1600, 900]}, {"frame": [1600, 0, 1000, 800]}],
  "accessibilityTrusted": true,
  "applications": [
    {"bundleIdentifier": "com.apple.controlcenter", "name": "Control Center", "processIdentifier": 401, "policy": "accessory",
     "statusItems": [{"autosaveName": "Clock", "description": "Time", "width": 100, "preferredPosition": 0, "fixed": true}]},
    {"bundleIdentifier": "org.a", "name": "A", "processIdentifier": 501, "policy": "accessory",
     "statusItems": [{"description": "A", "width": 40, "preferredPosition": 120}]},
    {"bundleIdentifier": "org.b", "name": "B", "processIdentifier": 502, "policy": "accessory",
     "statusItems": [{"description": "B", "width": 40, "preferredPosition": 121}]},
    {"bundleIdentifier": "org.c", "name": "C", "processIdentifier": 503, "policy": "accessory",
     "statusItems": [{"description": "C", "width": 40, "preferredPosition": 122, "opens": "menu", "menu": [{"title": "Ring"}]}]}]})";

class SyntheticEvents : public testing::Test {
  protected:
    explicit SyntheticEvents(const json& changes = json::object())
        : mac_({.desktopJson = desktop, .changes = changes, .program = [this](tavrin::Platform& platform) {
                    return std::make_unique<ProbeDelegate>(probe_, platform);
                }}) {
        mac_.wait(0.5);
        home_ = events().pointerLocation().value();
    }

    tavrin::Events& events() { return probe_.platform->events; }

    json item(const std::string& bundle) { return mac_.itemsOf(bundle).front(); }

    Rect frameOf(const std::string& bundle) {
        const auto frame = item(bundle)["frame"].get<std::array<double, 4>>();
        return {frame[0], frame[1], frame[2], frame[3]};
    }

    std::string order() {
        std::string letters;
        const auto look = mac_.look();
        for (const auto& shown : look["menuBar"])
            if (shown["owner"] != tavrinBundle) letters += shown["name"].get<std::string>().front();
        return letters;
    }

    json heldButtons() { return mac_.look()["pointer"]["buttons"]; }

    std::int64_t nextNumber() { return std::int64_t{events().eventCount(MouseEventType::LeftDown)} + 1; }

    MouseEvent event(MouseEventType type, Point at, std::int64_t number) {
        MouseEvent made{.type = type, .location = at, .clickState = {}, .fields = fields_, .source = {}};
        if (type != MouseEventType::Moved && number != 0) made.fields[EventField::EventNumber] = number;
        if (type == MouseEventType::LeftDown) made.flags = pressFlags_;
        return made;
    }

    void post(const MouseEvent& value) {
        const auto made = events().create(value);
        ASSERT_TRUE(made);
        if (process_) return events().postToProcess(*made, *process_), mac_.wait(0.015);
        events().post(*made, tap_);
        mac_.wait(0.015);
    }

    /// A press, drags and a release, each with its number.
    void drag(Point from, Point to, std::array<std::int64_t, 3> numbers) {
        post(event(MouseEventType::LeftDown, from, numbers[0]));
        for (int step = 1; step <= 5; ++step)
            post(event(MouseEventType::LeftDragged,
                       {from.x + (to.x - from.x) * step / 5, from.y + (to.y - from.y) * step / 5},
                       numbers[1]));
        post(event(MouseEventType::LeftUp, to, numbers[2]));
    }

    void drag(Point from, Point to) {
        const auto number = nextNumber();
        drag(from, to, {number, number, number});
        mac_.wait(0.3);
    }

    void dragBy(const std::string& bundle, double dx) {
        const auto from = frameOf(bundle).middle();
        drag(from, {from.x + dx, from.y});
    }

    std::vector<std::uint32_t> windowsAt(const Rect& frame) {
        auto* functions = probe_.platform->windowServer.menuBarFunctions();
        std::vector<std::uint32_t> numbers(
            static_cast<std::size_t>(functions->windowCount(functions->mainConnection()).value()));
        const auto count = functions->processMenuBarWindowList(functions->mainConnection(), numbers);
        numbers.resize(static_cast<std::size_t>(count.value()));
        std::erase_if(numbers, [&](auto number) {
            return functions->screenRect(functions->mainConnection(), number).value() != frame;
        });
        return numbers;
    }

    /// Events from now on name the window of the bundle's item, and go to its process alone.
    void address(const std::string& bundle, int process) {
        const auto window = windowsAt(frameOf(bundle)).at(0);
        process_ = process;
        fields_ = {{EventField::TargetProcess, process}, {EventField::WindowNumber, window}};
    }

    Probe probe_;
    TavrinMac mac_;
    Point home_;
    EventTap tap_ = EventTap::Hid;
    std::optional<int> process_;
    std::map<EventField, std::int64_t> fields_;
    tavrin::EventFlags pressFlags_ = tavrin::commandEventFlag;
};

TEST_F(SyntheticEvents, theFlagOnThePressMakesACommandDrag) {
    ASSERT_EQ(order(), "CBAT");
    dragBy("org.b", 41);
    EXPECT_EQ(order(), "CABT");
    tap_ = EventTap::Session;
    dragBy("org.b", -41);
    EXPECT_EQ(order(), "CBAT");
    dragBy("org.b", 3);
    dragBy("com.apple.controlcenter", -200);
    pressFlags_ = tavrin::noEventFlags;
    dragBy("org.b", 41);
    EXPECT_EQ(order(), "CBAT") << "hardly moved, fixed, and without the flag";
    EXPECT_TRUE(heldButtons().empty());
}

TEST_F(SyntheticEvents, areLoggedAndMoveThePointer) {
    const auto place = frameOf("org.b").middle();
    const auto number = nextNumber();
    (void)mac_.events();
    post(event(MouseEventType::LeftDown, place, number));
    EXPECT_EQ(heldButtons(), json({"left"}));
    EXPECT_EQ(events().pointerLocation(), place);
    EXPECT_EQ(events().eventCount(MouseEventType::LeftDown), number);
    post(event(MouseEventType::LeftUp, place, number));
    events().hideCursor();
    const auto logged = mac_.events()["events"];
    ASSERT_EQ(logged.size(), 3U);
    const auto expected = json{{"time", logged[0]["time"]}, {"type", "leftMouseDown"}, {"tap", "hid"},
                               {"at", {place.x, place.y}},  {"flags", 0x100000},       {"clickState", 1},
                               {"fields", {{"0", number}}}};
    EXPECT_EQ(logged[0], expected);
    EXPECT_EQ(logged[1]["clickState"], 0);
    EXPECT_EQ(logged[2]["type"], "cursorHide");
}

TEST_F(SyntheticEvents, goOnOnlyUnderTheNumberOfTheirPress) {
    const auto from = frameOf("org.b").middle();
    const Point to{from.x + 41, from.y};
    const auto next = nextNumber();
    for (const auto& numbers : {std::array<std::int64_t, 3>{0, 0, 0},
                                {next + 10, next + 11, next + 10},
                                {next + 20, next + 20, next + 21},
                                {1, 1, 1}}) {
        drag(from, to, numbers);
        mac_.wait(0.3);
        EXPECT_EQ(order(), "CBAT") << numbers[0] << numbers[1] << numbers[2];
        EXPECT_TRUE(heldButtons().empty());
    }
}

struct SyntheticEventsOn15 : SyntheticEvents {
    SyntheticEventsOn15() : SyntheticEvents({{"macOS", {{"major", 15}}}}) {}
};

TEST_F(SyntheticEventsOn15, needNoNumber) {
    const auto from = frameOf("org.b").middle();
    drag(from, {from.x + 41, from.y}, {0, 0, 0});
    EXPECT_EQ(frameOf("org.b").x, 1461) << "the item slides into its place first";
    mac_.wait(0.3);
    EXPECT_EQ(frameOf("org.b").x, 1460);
    EXPECT_EQ(order(), "CABT");
}

TEST_F(SyntheticEvents, reachAnItemThroughItsWindow) {
    probe_.item->setLength(10'000);
    mac_.wait(0.5);
    dragBy("org.b", -41); // C goes to the right of it
    probe_.item->setLength(40);
    mac_.wait(0.5);
    const auto own = frameOf(tavrinBundle).middle();
    drag(own, {1440, own.y}); // its right neighbour is A now
    probe_.item->setLength(10'000);
    mac_.wait(0.5);
    ASSERT_EQ(item("org.c")["why"], "offscreen");
    const auto from = frameOf("org.c").middle();
    address("org.c", 503);
    for (const auto& [process, field] : {std::pair{501, 503}, {503, 501}}) {
        process_ = process;
        fields_[EventField::TargetProcess] = field;
        drag(from, {1495, from.y});
        EXPECT_EQ(item("org.c")["drawn"], false) << "of another process";
    }
    address("org.c", 503);
    drag(from, {1495, from.y});
    EXPECT_EQ(item("org.c")["drawn"], true);
    EXPECT_EQ(order().substr(2), "CT");
    EXPECT_EQ(events().pointerLocation()->y, own.y) << "only the tap's events moved it";
    EXPECT_GT(events().pointerLocation()->x, 1000);
    fields_[EventField::WindowNumber] = 4711;
    drag(frameOf("org.c").middle(), {1300, from.y});
    EXPECT_EQ(order().substr(2), "CT") << "no such window";
}

TEST_F(SyntheticEvents, clickAWindowThroughTheSessionTap) {
    address("org.c", 503);
    process_.reset();
    tap_ = EventTap::Session;
    pressFlags_ = tavrin::noEventFlags;
    const auto place = frameOf("org.c").middle();
    drag(place, place);
    EXPECT_TRUE(mac_.shows("Ring"));
}

struct SyntheticEventsOn27 : SyntheticEvents {
    SyntheticEventsOn27() : SyntheticEvents({{"macOS", {{"major", 27}}}}) {}
};

TEST_F(SyntheticEventsOn27, findNoWindowsOfItems) {
    EXPECT_TRUE(windowsAt(frameOf("org.a")).empty());
    EXPECT_EQ(windowsAt({1600, 0, 1000, mac_.look()["screens"][1]["menuBarHeight"]}).size(), 1U);
}

TEST_F(SyntheticEvents, meetFaults) {
    mac_.set("windowServerAbsent", true);
    EXPECT_EQ(probe_.platform->windowServer.menuBarFunctions(), nullptr);
    mac_.set("windowServerAbsent", false);
    const auto frame = frameOf("org.a");
    for (const auto& [how, count] : {std::pair{"displaced", 0U}, {"doubled", 2U}, {"no", 1U}}) {
        mac_.set("misreportedWindow", {{"org.a", how}});
        EXPECT_EQ(windowsAt(frame).size(), count) << how;
    }
    mac_.set("eventsFail", true);
    EXPECT_FALSE(events().createSource({}) || events().create({}) || events().pointerLocation());
    mac_.set("eventsFail", false);
    mac_.set("refuseDrags", "org.b");
    dragBy("org.b", 41);
    EXPECT_EQ(order(), "CBAT");
    mac_.set("refuseDrags", {{"org.b", "no"}});
    mac_.set("loseDrags", 2);
    dragBy("org.b", 41);
    EXPECT_EQ(order(), "CABT");
    dragBy("org.b", -41);
    EXPECT_EQ(order(), "CABT") << "lost";
    mac_.set("loseDrags", 0);
    mac_.set("personMovesPointerDuringDrags", true);
    dragBy("org.b", -22);
    EXPECT_EQ(order(), "BCAT") << "40 points further left than it was dragged";
}

TEST_F(SyntheticEvents, needPermission) {
    mac_.set("trusted", false);
    (void)mac_.events();
    dragBy("org.b", 41);
    EXPECT_EQ(order(), "CBAT");
    EXPECT_EQ(events().pointerLocation(), home_);
    EXPECT_TRUE(mac_.events()["events"].empty());
}

TEST_F(SyntheticEvents, leaveTheBarInOrderWhenADragEndsEarly) {
    using Ending = std::pair<const char*, std::function<void()>>;
    const std::array endings{
        Ending{"display unplugged",
               [this] { mac_.set("screens", json::array({{{"frame", {0, 0, 1600, 900}}}})); }},
        Ending{"permission revoked",
               [this] {
                   mac_.set("trusted", false);
                   mac_.set("trusted", true);
               }},
        Ending{"item's owner quits", [this] { mac_.set("quit", "org.b"); }},
        Ending{"program crashes", [this] {
                   events().hideCursor();
                   mac_.crash();
               }}};
    for (const bool isByWindow : {false, true})
        for (const auto& [name, end] : endings) {
            if (mac_.itemsOf("org.b").empty()) mac_.set("launch", json::parse(desktop)["applications"][2]);
            mac_.set("screens", json::parse(desktop)["screens"]);
            if (!probe_.platform) mac_.start();
            mac_.wait(1);
            const auto from = frameOf("org.b").middle();
            if (isByWindow) address("org.b", 502);
            const auto number = nextNumber();
            post(event(MouseEventType::LeftDown, from, number));
            post(event(MouseEventType::LeftDragged, {from.x + 41, from.y}, number));
            ASSERT_EQ(item("org.b")["carried"], true) << name;
            end();
            mac_.done({{"do", "move"}, {"at", {from.x - 100, 12}}});
            mac_.wait(0.5);
            EXPECT_EQ(order(), mac_.itemsOf("org.b").empty() ? "CAT" : "CBAT") << name;
            const bool wasClicked = std::string_view(name) == "permission revoked";
            EXPECT_EQ(heldButtons().empty(), isByWindow || wasClicked)
                << name << ": macOS releases no button, a person's click does";
            EXPECT_EQ(mac_.look()["pointer"]["visible"], true) << name;
            mac_.done({{"do", "up"}});
            mac_.wait(0.5);
            EXPECT_EQ(order(), mac_.itemsOf("org.b").empty() ? "CAT" : "CBAT") << name;
            process_.reset();
            fields_.clear();
        }
}

} // namespace
} // namespace mac_model
