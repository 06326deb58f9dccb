#include "platform/events.h"
#include "platform/hot_keys.h"
#include "seam/passed_on.h"
#include "seam/self_check_program.h"

#include <algorithm>
#include <set>

namespace mac_model {
namespace {

using namespace tavrin;
using seam_check::Outcome;

constexpr double screenWidth = 1512; // of the desktop that the lies are told on
constexpr double screenHeight = 982;

Rect flipped(const Rect& rect) { return {rect.x, screenHeight - rect.maxY(), rect.width, rect.height}; }

struct SwapsPostedWork : PassedOnScheduler {
    using PassedOnScheduler::PassedOnScheduler;

    void post(Work work) override {
        if (++posted % 2 == 0) return truth.post(std::move(work));
        truth.post([this, work = std::move(work)] { truth.post(work); });
    }

    int posted = 0;
};

struct ForgetsToCancel : PassedOnScheduler {
    using PassedOnScheduler::PassedOnScheduler;

    TimerIdentifier callAfter(Seconds delay, Work work) override {
        const auto timer = truth.callAfter(delay, std::move(work));
        if (delay < Seconds{1}) brief.insert(timer);
        return timer;
    }

    void cancelTimer(TimerIdentifier timer) override {
        if (!brief.contains(timer)) truth.cancelTimer(timer);
    }

    std::set<TimerIdentifier> brief;
};

struct RepeatsAShare : PassedOnScheduler {
    using PassedOnScheduler::PassedOnScheduler;

    void concurrentPerform(std::size_t count, const std::function<void(std::size_t)>& body) override {
        if (count > 0) body(0);
        truth.concurrentPerform(count, body);
    }
};

struct MindsCase : PassedOnText {
    using PassedOnText::PassedOnText;

    std::strong_ordering compareIgnoringCase(std::string_view left, std::string_view right) const override {
        return left <=> right;
    }

    std::string foldingCaseAndDiacritics(std::string_view text) const override { return lowercased(text); }

    std::string foldingCaseDiacriticsAndWidth(std::string_view text) const override {
        return truth.foldingCaseAndDiacritics(text);
    }
};

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

struct ListsBackwards : PassedOnWorkspace {
    using PassedOnWorkspace::PassedOnWorkspace;

    std::vector<RunningApplication> runningApplications() const override {
        auto all = truth.runningApplications();
        for (auto& application : all) application.isRegular = false;
        const auto latest = all.back();
        if (++readings_ % 2 == 1) std::ranges::reverse(all);
        all.push_back(latest);
        return all;
    }

    std::optional<std::string> bundleIdentifierAt(std::string_view) const override {
        return "com.apple.finder";
    }

    std::optional<std::vector<std::byte>> iconPngOfProcess(ProcessIdentifier) const override {
        return std::nullopt;
    }

  private:
    mutable int readings_ = 0;
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

struct MixesUpAnswers : PassedOnAccessibility {
    using PassedOnAccessibility::PassedOnAccessibility;

    AccessibilityElement application(ProcessIdentifier process) override {
        return known.try_emplace(process, truth.application(process)).first->second; // one time-out for all
    }

    AttributeResult attribute(const AccessibilityElement& element, std::string_view name) override {
        auto answer = truth.attribute(element, name);
        if (!answer) return AttributeValue{};
        if (const auto* flag = std::get_if<bool>(&*answer)) return *flag ? 1.0 : 0.0;
        if (const auto* place = std::get_if<Point>(&*answer)) return Point{place->x, screenHeight - place->y};
        return answer;
    }

    std::expected<std::vector<AttributeResult>, AccessibilityError>
    attributes(const AccessibilityElement& element, std::span<const std::string_view> names) override {
        auto results = truth.attributes(element, names);
        if (results) std::ranges::reverse(*results);
        return results;
    }

    std::expected<void, AccessibilityError> perform(const AccessibilityElement&, std::string_view) override {
        return {};
    }

    std::map<ProcessIdentifier, AccessibilityElement> known;
};

struct StoresCarelessly : PassedOnDefaults {
    using PassedOnDefaults::PassedOnDefaults;

    static DefaultsDomain shared(const DefaultsDomain& domain) { return {domain.name}; }

    std::optional<DefaultsValue> value(const DefaultsDomain& domain, std::string_view key) const override {
        auto stored = truth.value(shared(domain), key);
        if (stored && std::holds_alternative<bool>(stored->value))
            stored->value = std::int64_t{std::get<bool>(stored->value)};
        return stored;
    }

    void set(const DefaultsDomain& domain, std::string_view key, DefaultsValue value) override {
        truth.set(shared(domain), key, std::move(value));
    }

    void remove(const DefaultsDomain&, std::string_view key) override { ++removals[std::string(key)]; }

    std::vector<std::string> keys(const DefaultsDomain& domain) const override {
        auto all = truth.keys(shared(domain));
        std::ranges::reverse(all);
        return all;
    }

    std::map<std::string, int> removals;
};

struct TellsTwice : Presentation {
    explicit TellsTwice(Presentation& real) : truth(real) {}

    static std::function<void()> twice(std::function<void()> told) {
        return [told = std::move(told)] { told(), told(); };
    }

    std::unique_ptr<Popover> makePopover(PopoverBehavior behavior, std::function<void()> onClose) override {
        return truth.makePopover(behavior, twice(std::move(onClose)));
    }

    std::unique_ptr<Window> makeWindow(std::string title, std::function<void()> onClose) override {
        return truth.makeWindow(std::move(title), twice(std::move(onClose)));
    }

    std::unique_ptr<Panel> makePanel() override { return truth.makePanel(); }

    std::unique_ptr<Alert> showAlert(AlertQuestion question,
                                     std::function<void(std::size_t)> onAnswer) override {
        return truth.showAlert(std::move(question), std::move(onAnswer));
    }

    void popUp(Menu menu, StatusItem& item, Rect area) override { truth.popUp(std::move(menu), item, area); }

    Presentation& truth;
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

struct PostsToAll : PassedOnEvents {
    using PassedOnEvents::PassedOnEvents;

    std::shared_ptr<const EventSource> createSource(const EventSourceSettings&) override {
        return truth.createSource({});
    }

    std::unique_ptr<PreparedEvent> create(const MouseEvent& event) override {
        auto plain = event;
        plain.flags = noEventFlags;
        return truth.create(plain);
    }

    void post(const PreparedEvent& event, EventTap tap) override {
        auto displaced = event.value();
        displaced.location.y += 30;
        truth.post(*truth.create(displaced), tap);
    }

    void postToProcess(const PreparedEvent& event, ProcessIdentifier) override {
        truth.post(event, EventTap::Hid);
    }

    bool mayPost() const override { return ++askedToPost > 1; }

    void warpPointer(Point location) override { truth.warpPointer({location.y, location.x}); }

    std::uint32_t eventCount(MouseEventType) const override { return --count; }

    mutable std::uint32_t count = 1000;
    mutable int askedToPost = 0;
};

struct HasAnyKey : HotKeys {
    explicit HasAnyKey(HotKeys&) {}

    std::expected<std::unique_ptr<HotKeyReference>, Error> registerHotKey(KeyCode, CarbonModifiers,
                                                                          HotKeyIdentifier) override {
        return std::make_unique<HotKeyReference>();
    }

    std::unique_ptr<HotKeyEventHandler>
    installPressHandler(std::function<Handling(const HotKeyIdentifier&)>) override {
        return nullptr;
    }

    std::vector<SymbolicHotKey> symbolicHotKeys() const override { return {{}}; }
};

/// The platform with one family replaced.
struct ForgetsRegistrations : PassedOnLoginItem {
    using PassedOnLoginItem::PassedOnLoginItem;

    LoginItemState state() const override {
        return ++asked % 2 == 0 ? LoginItemState::NotFound : LoginItemState::NotRegistered;
    }

    std::expected<void, std::string> registerApplication() override { return {}; }

    mutable int asked = 0;
};

struct KeepsRegistrations : PassedOnLoginItem {
    using PassedOnLoginItem::PassedOnLoginItem;

    std::expected<void, std::string> unregisterApplication() override { return {}; }
};

struct RefusesWithoutAWord : PassedOnLoginItem {
    using PassedOnLoginItem::PassedOnLoginItem;

    std::expected<void, std::string> registerApplication() override { return std::unexpected(""); }
};

template <class Lie>
Platform with(Lie& lie, const Platform& real) {
    const auto pick = [&lie]<class Family>(Family& truth) -> Family& {
        if constexpr (std::is_base_of_v<Family, Lie>)
            return lie;
        else
            return truth;
    };
    return {.scheduler = pick(real.scheduler),
            .application = real.application,
            .accessibility = pick(real.accessibility),
            .defaults = pick(real.defaults),
            .events = pick(real.events),
            .hotKeys = pick(real.hotKeys),
            .keyboard = real.keyboard,
            .loginItem = pick(real.loginItem),
            .presentation = pick(real.presentation),
            .randomness = real.randomness,
            .screens = pick(real.screens),
            .statusItems = pick(real.statusItems),
            .text = pick(real.text),
            .windowServer = pick(real.windowServer),
            .workspace = pick(real.workspace),
            .updater = real.updater};
}

/// Gives the family of the platform that is asked for by type.
struct AnyFamily {
    operator Scheduler&() const { return real.scheduler; }

    operator Accessibility&() const { return real.accessibility; }

    operator Defaults&() const { return real.defaults; }

    operator Events&() const { return real.events; }

    operator HotKeys&() const { return real.hotKeys; }

    operator LoginItem&() const { return real.loginItem; }

    operator Presentation&() const { return real.presentation; }

    operator Screens&() const { return real.screens; }

    operator StatusItems&() const { return real.statusItems; }

    operator Text&() const { return real.text; }

    operator WindowServer&() const { return real.windowServer; }

    operator Workspace&() const { return real.workspace; }

    const Platform& real;
};

/// The promises of the family that the lie breaks must be reported as broken.
template <class Lie>
void expectCaught(std::string_view family, const std::vector<std::string_view>& broken,
                  const std::string& desktop = "notched-laptop") {
    SelfCheck self;
    std::erase_if(self.checks, [&](const auto& check) { return check.family != family; });
    std::unique_ptr<Lie> lie; // outlives the Mac, on which the program is still running
    self.falsify = [&](const Platform& real) {
        lie = std::make_unique<Lie>(AnyFamily{real});
        return with(*lie, real);
    };
    const auto mac = runOnMac(self, {.desktop = desktop, .changes = {{"accessibilityTrusted", true}}});
    for (const auto promise : broken)
        EXPECT_EQ(self.on(promise).outcome, Outcome::Failed) << promise << "\n" << self.report.str();
}

TEST(PlantedLies, ofTheScheduler) {
    expectCaught<SwapsPostedWork>("scheduler",
                                  {"Posted work runs on the main thread in the order of posting."});
    expectCaught<ForgetsToCancel>("scheduler", {"A cancelled timer never fires."});
    expectCaught<RepeatsAShare>(
        "scheduler", {"Concurrent shares run once each, and all have ended when the call returns."});
}

TEST(PlantedLies, ofText) {
    expectCaught<MindsCase>(
        "text", {"Folding takes away case and diacritics and reads invalid bytes as U+FFFD.",
                 "Folding width, too, is the same in every locale and leaves other scripts their marks.",
                 "Comparing takes no account of case, but of accents.", "Text services work on any thread."});
}

TEST(PlantedLies, ofScreens) {
    expectCaught<CountsFromBelow>(
        "screens",
        {"The menu bar's parts beside a notch lie at the top edge, left and right of it.",
         "The primary screen comes first, and its top left is the origin.",
         "While the menu bar is to be seen, windows of it are on the screens, which are shown."},
        "two-displays");
}

TEST(PlantedLies, ofTheWorkspace) {
    expectCaught<ListsBackwards>(
        "workspace", {"The running applications contain this process once, with its bundle identifier.",
                      "The Finder is listed as a regular application.", "No process is listed twice.",
                      "Applications that stay keep their order in the list.",
                      "A path leads to its bundle's identifier, and to none without a bundle, on any thread.",
                      "Icons are pictures of 32 × 32 pixels, and who isn't there has none."});
}

TEST(PlantedLies, ofTheWindowServer) {
    expectCaught<WritesTooFar>("window server",
                               {"The menu bar has windows, and no more than there are in all.",
                                "A list of windows is written no further than it has room.",
                                "Windows of the menu bar lie at the top of a screen.",
                                "The place of a window that doesn't exist is an error."});
}

TEST(PlantedLies, ofAccessibility) {
    expectCaught<MixesUpAnswers>("accessibility",
                                 {"The program reads itself, and values keep their types.",
                                  "An attribute that an element lacks is unsupported or without a value.",
                                  "Several attributes in one message come in order, each with its own error.",
                                  "An action that an element lacks is an error and not among its names.",
                                  "A process that doesn't exist gives an error in time.",
                                  "A messaging time-out bounds its own reference alone.",
                                  "Positions of items in the menu bar are counted from the top left."});
}

TEST(PlantedLies, ofDefaults) {
    expectCaught<StoresCarelessly>(
        "defaults",
        {"Booleans, integers, reals, texts, data, arrays and dictionaries come back as they were stored.",
         "Values for this computer alone are apart from those for any host.", "Keys come in ascending order.",
         "What was removed is gone.", "A later value replaces an earlier one of any kind."});
}

TEST(PlantedLies, ofEvents) {
    expectCaught<PostsToAll>("events",
                             {"An event source keeps the settings it was made with.",
                              "A prepared event holds what it was made of.", "Counts of events never fall.",
                              "Posted events arrive when Accessibility is allowed.",
                              "The pointer is where it was put without an event.",
                              "A move posted to where the pointer is arrives and leaves it there.",
                              "An event for one process leaves the pointer where it is."});
}

TEST(PlantedLies, ofHotKeys) {
    expectCaught<HasAnyKey>("hot keys", {"The system's own shortcuts are listed with their keys.",
                                         "A hot key is had once, and is free when its registration has gone.",
                                         "Handlers of presses are installed and removed."});
}

TEST(PlantedLies, ofTheLoginItem) {
    constexpr std::string_view takenBack = "The program is registered to start at login, and taken back.";
    expectCaught<ForgetsRegistrations>(
        "login item", {"Asking whether the program starts at login changes nothing.", takenBack});
    expectCaught<KeepsRegistrations>("login item", {takenBack});
    expectCaught<RefusesWithoutAWord>("login item", {takenBack});
}

TEST(PlantedLies, ofStatusItems) {
    expectCaught<MakesItems<MisplacedItem>>(
        "status items",
        {"A new item is in the menu bar with the length it was given, counted from the top left.",
         "A longer item grows to the left.",
         "Label and tool tip reach Accessibility, and a hidden item is not found there."});
    expectCaught<MakesItems<MirroredItem>>(
        "status items", {"An item takes the place that is stored under its name.",
                         "An item that is made with length 0 has a place without width.",
                         "Of a drawn item AppKit, its frame and the window server's list tell the same.",
                         "An item is at one place for AppKit, Accessibility and the window server."});
}

TEST(PlantedLies, ofPresentation) {
    expectCaught<TellsTwice>("presentation",
                             {"A popover shows at its item, and tells once that it has closed.",
                              "A popover can be shown again, whatever its behaviour was at first.",
                              "A window shows every kind of view, and tells once that it closes."});
}

} // namespace
} // namespace mac_model
