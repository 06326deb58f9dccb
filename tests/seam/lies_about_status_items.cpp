#include "seam/lies_about_status_items.h"

#include <algorithm>
#include <map>

namespace mac_model {
namespace {

using namespace tavrin;

struct CountsFromBelow : Screens {
    explicit CountsFromBelow(Screens& real) : truth(real) {}

    std::vector<Screen> screens() const override {
        auto all = truth.screens();
        for (auto& screen : all) {
            if (screen.leftMenuBarArea) screen.leftMenuBarArea = flipped(*screen.leftMenuBarArea);
            if (screen.rightMenuBarArea) screen.rightMenuBarArea = flipped(*screen.rightMenuBarArea);
        }
        std::ranges::reverse(all);
        return all;
    }

    Subscription onChanged(std::function<void()> handler) override {
        return truth.onChanged(std::move(handler));
    }

    bool areShown() const override { return !truth.areShown(); }

    Subscription onShownChanged(std::function<void()> handler) override {
        return truth.onShownChanged(std::move(handler));
    }

    Screens& truth;
};

struct PilesThemUp : Screens {
    explicit PilesThemUp(Screens& real) : truth(real) {}

    std::vector<Screen> screens() const override {
        auto all = truth.screens();
        for (auto& screen : all) {
            screen.frame.x = screen.frame.y = 0;
            screen.menuBarHeight = 0;
        }
        return all;
    }

    Subscription onChanged(std::function<void()> handler) override {
        return truth.onChanged(std::move(handler));
    }

    bool areShown() const override { return truth.areShown(); }

    Subscription onShownChanged(std::function<void()> handler) override {
        return truth.onShownChanged(std::move(handler));
    }

    Screens& truth;
};

struct WritesTooFar : WindowServer, WindowServerMenuBar::Functions {
    using Connection = WindowServerMenuBar::Connection;
    using Number = WindowServerMenuBar::WindowNumber;
    using Status = WindowServerMenuBar::Status;

    explicit WritesTooFar(WindowServer& real) : truth(*real.menuBarFunctions()) {}

    WindowServerMenuBar::Functions* menuBarFunctions() override { return this; }

    std::vector<OnScreenWindow> onScreenWindows() const override { return {}; }

    Connection mainConnection() override { return truth.mainConnection(); }

    std::expected<std::int32_t, Status> windowCount(Connection) override { return 0; }

    std::expected<std::int32_t, Status> processMenuBarWindowList(Connection connection,
                                                                 std::span<Number> windows) override {
        if (windows.size() == 1) windows.data()[1] = 1; // the check has more room than it tells of
        return truth.processMenuBarWindowList(connection, windows);
    }

    std::expected<Rect, Status> screenRect(Connection connection, Number window) override {
        const auto rect = truth.screenRect(connection, window);
        return rect ? flipped(*rect) : Rect{};
    }

    WindowServerMenuBar::Functions& truth;
};

struct ChangesItsConnection : WritesTooFar {
    using WritesTooFar::WritesTooFar;

    Connection mainConnection() override { return truth.mainConnection() + ++asked; }

    int asked = 0;
};

struct MisplacedItem : PassedOnStatusItem {
    using PassedOnStatusItem::PassedOnStatusItem;

    std::optional<Rect> frame() const override {
        auto frame = truth->frame();
        if (!frame) return frame;
        frame->x += 2 * frame->width; // so that it seems to grow to the right
        return flipped(*frame);
    }

    void setHiddenFromAccessibility(bool) override {}
};

struct UnplacedItem : PassedOnStatusItem {
    using PassedOnStatusItem::PassedOnStatusItem;

    std::optional<Rect> frame() const override { return Rect{0, 0, 40, 0}; }
};

/// Always in sight, and never longer than asked at first.
struct StubbornItem : PassedOnStatusItem {
    using PassedOnStatusItem::PassedOnStatusItem;

    bool isDrawn() const override { return true; }

    void setVisible(bool) override {}

    void setLength(double) override {}

    double length() const override { return 26; }

    void setAlpha(double alpha) override { truth->setLength(alpha * 100); }
};

struct LeftHandedItem : PassedOnStatusItem {
    using PassedOnStatusItem::PassedOnStatusItem;

    void setAction(std::function<void(StatusItemPress)> action) override {
        truth->setAction([action = std::move(action)](StatusItemPress press) {
            if (action)
                action(press == StatusItemPress::Left ? StatusItemPress::Right : StatusItemPress::Left);
        });
    }
};

struct MirroredItem : PassedOnStatusItem {
    using PassedOnStatusItem::PassedOnStatusItem;

    std::optional<Rect> frame() const override {
        auto frame = truth->frame();
        if (frame && frame->height > 0) frame->x = screenWidth - frame->maxX();
        return frame;
    }
};

template <class Item>
struct MakesItems : StatusItems {
    explicit MakesItems(StatusItems& real) : truth(real) {}

    std::unique_ptr<StatusItem> create(double length) override {
        return std::make_unique<Item>(truth.create(length));
    }

    Subscription onDrawnChanged(std::function<void()> handler) override {
        return truth.onDrawnChanged(std::move(handler));
    }

    StatusItems& truth;
};

} // namespace

std::vector<PlantedLie> liesAboutStatusItems() {
    constexpr auto family = "status items";
    return {
        lie<CountsFromBelow>(
            "countsFromBelow", "screens",
            {"The menu bar's parts beside a notch lie at the top edge, left and right of it.",
             "The primary screen comes first, and its top left is the origin.",
             "While the menu bar is to be seen, windows of it are on the screens, which are "
             "shown."},
            "two-displays"),
        lie<PilesThemUp>("pilesThemUp", "screens",
                         {"Screens have sizes and scales, and lie apart from each other.",
                          "Menu bars have the heights of menu bars."},
                         "two-displays"),
        lie<WritesTooFar>("writesTooFar", "window server",
                          {"The menu bar has windows, and no more than there are in all.",
                           "A list of windows is written no further than it has room.",
                           "Windows of the menu bar lie at the top of a screen.",
                           "The place of a window that doesn't exist is an error."}),
        lie<ChangesItsConnection>("changesItsConnection", "window server",
                                  {"The private functions are there together, with a lasting connection."}),
        lie<MakesItems<MisplacedItem>>(
            "misplacedItem", family,
            {"A new item is in the menu bar with the length it was given, counted from the top left.",
             "A longer item grows to the left.",
             "Label and tool tip reach Accessibility, and a hidden item is not found there."}),
        lie<MakesItems<MirroredItem>>(
            "mirroredItem", family,
            {"An item takes the place that is stored under its name.",
             "An item that is made with length 0 has a place without width.",
             "Of a drawn item AppKit, its frame and the window server's list tell the same.",
             "An item is at one place for AppKit, Accessibility and the window server."}),
        lie<MakesItems<UnplacedItem>>(
            "unplacedItem", family,
            {"A new item gets its place within five seconds, and has no height before."}),
        lie<MakesItems<StubbornItem>>(
            "stubbornItem", family,
            {"Of a drawn item AppKit, its frame and the window server's list tell the same.",
             "A longer item grows to the left.",
             "Square items are square, and items of length 0 have no width.",
             "What is drawn in an item changes neither its place nor its length.",
             "An item made invisible is not drawn, and has a place again when it is made visible.",
             "A long item pushes the one on its left off the screen, until it is short again."}),
        lie<MakesItems<LeftHandedItem>>(
            "leftHandedItem", family,
            {"A press through Accessibility reaches the item's action, once and as a left one."}),
        lie<MakesItems<LeftHandedItem>>(
            "leftHandedClicks", "by hand",
            {"A click on an item reaches its action, and the program may become active then.",
             "A click with the right button is told apart."}),
    };
}

} // namespace mac_model
