#include "seam/lies_about_input.h"

namespace mac_model {
namespace {

using namespace tavrin;

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

struct DropsTheCommandKey : PassedOnEvents {
    using PassedOnEvents::PassedOnEvents;

    std::unique_ptr<PreparedEvent> create(const MouseEvent& event) override {
        auto plain = event;
        plain.flags = noEventFlags;
        return truth.create(plain);
    }
};

/// Its events aren't what it says of them.
struct MakesOtherEvents : PassedOnEvents {
    using PassedOnEvents::PassedOnEvents;

    struct Other final : PreparedEvent {
        using PreparedEvent::PreparedEvent;

        MouseEvent readBack() const override {
            auto read = value();
            read.flags = noEventFlags;
            return read;
        }
    };

    std::unique_ptr<PreparedEvent> create(const MouseEvent& event) override {
        return std::make_unique<Other>(event);
    }
};

struct LosesThePointer : PassedOnEvents {
    using PassedOnEvents::PassedOnEvents;

    std::optional<Point> pointerLocation() const override { return Point{-500, -500}; }
};

struct SilentKeys : HotKeys {
    explicit SilentKeys(HotKeys& real) : truth(real) {}

    std::expected<std::unique_ptr<HotKeyReference>, Error>
    registerHotKey(KeyCode key, CarbonModifiers modifiers, HotKeyIdentifier identifier) override {
        return truth.registerHotKey(key, modifiers, identifier);
    }

    std::unique_ptr<HotKeyEventHandler>
    installPressHandler(std::function<Handling(const HotKeyIdentifier&)>) override {
        return std::make_unique<HotKeyEventHandler>();
    }

    std::vector<SymbolicHotKey> symbolicHotKeys() const override { return truth.symbolicHotKeys(); }

    HotKeys& truth;
};

struct OtherKeys : Keyboard {
    explicit OtherKeys(Keyboard& real) : truth(real) {}

    std::string character(KeyCode) const override { return std::to_string(++asked); }

    Subscription monitorKeyDown(std::function<KeyHandling(const KeyPress&)> handler) override {
        return truth.monitorKeyDown([handler = std::move(handler)](KeyPress key) {
            ++key.keyCode;
            return handler(key);
        });
    }

    void beep() override { truth.beep(); }

    Keyboard& truth;
    mutable int asked = 0;
};

} // namespace

std::vector<PlantedLie> liesAboutInput() {
    return {
        lie<PostsToAll>("postsToAll", "events",
                        {"An event source keeps the settings it was made with.",
                         "A prepared event holds what it was made of.", "Counts of events never fall.",
                         "Posted events arrive when Accessibility is allowed.",
                         "The pointer is where it was put without an event.",
                         "A move posted to where the pointer is arrives and leaves it there.",
                         "An event for one process leaves the pointer where it is."}),
        lie<DropsTheCommandKey>("dropsTheCommandKey", "status items",
                                {"A drag with Command moves an item past its neighbour."}),
        lie<MakesOtherEvents>("makesOtherEvents", "events", {"A prepared event holds what it was made of."}),
        lie<LosesThePointer>("losesThePointer", "events", {"The pointer is on a screen."}),
        lie<HasAnyKey>("hasAnyKey", "hot keys",
                       {"The system's own shortcuts are listed with their keys.",
                        "A hot key is had once, and is free when its registration has gone.",
                        "Handlers of presses are installed and removed."}),
        lie<SilentKeys>("silentKeys", "hot keys",
                        {"A hot key that is pressed reaches the handler under its identifier."}),
        lie<OtherKeys>("otherKeys", "keyboard", {"Keys make the characters of the layout."}),
        lie<OtherKeys>("tellsOtherKeys", "by hand",
                       {"A key that goes down for a window of the program is shown to it first."}),
    };
}

} // namespace mac_model
