#include "seam/lies_about_windows.h"

#include <utility>

namespace mac_model {
namespace {

using namespace tavrin;

struct TellsTwice : PassedOnPresentation {
    using PassedOnPresentation::PassedOnPresentation;

    static std::function<void()> twice(std::function<void()> told) {
        return [told = std::move(told)] { told(), told(); };
    }

    std::unique_ptr<Popover> makePopover(PopoverBehavior behavior, std::function<void()> onClose) override {
        return truth.makePopover(behavior, twice(std::move(onClose)));
    }

    std::unique_ptr<Window> makeWindow(std::string title, std::function<void()> onClose) override {
        return truth.makeWindow(std::move(title), twice(std::move(onClose)));
    }
};

struct LastWord {
    explicit LastWord(std::function<void()> told) : tell(std::move(told)) {}

    LastWord(const LastWord&) = delete;
    LastWord& operator=(const LastWord&) = delete;

    ~LastWord() { tell(); }

    std::function<void()> tell;
};

struct TalkativePopover : Popover {
    TalkativePopover(std::unique_ptr<Popover> real, std::function<void()> onClose)
        : truth(std::move(real))
        , word(std::move(onClose)) {}

    void setContent(View content) override { truth->setContent(std::move(content)); }

    void setBehavior(PopoverBehavior behavior) override { truth->setBehavior(behavior); }

    bool show(StatusItem& item, Rect area) override { return truth->show(item, area), true; }

    void close() override { truth->close(); }

    bool isShown() const override { return truth->isShown(); }

    std::unique_ptr<Popover> truth;
    LastWord word;
};

struct TalkativeWindow : Window {
    TalkativeWindow(std::unique_ptr<Window> real, std::function<void()> onClose)
        : truth(std::move(real))
        , word(std::move(onClose)) {}

    void setContent(View content) override {
        if (!std::exchange(hasContent, true)) truth->setContent(std::move(content));
    }

    void placeBelowMenuBar() override {}

    void makeKeyAndOrderFront() override { truth->makeKeyAndOrderFront(); }

    void close() override { truth->close(); }

    bool isVisible() const override { return truth->isVisible(); }

    std::unique_ptr<Window> truth;
    LastWord word;
    bool hasContent = false;
};

struct TalkativeAlert : Alert {
    TalkativeAlert(std::unique_ptr<Alert> real, std::function<void()> answer)
        : truth(std::move(real))
        , word(std::move(answer)) {}

    void bringToFront() override { truth->bringToFront(); }

    std::unique_ptr<Alert> truth;
    LastWord word;
};

/// Doesn't go when it is told to.
struct LingeringPanel : Panel {
    explicit LingeringPanel(std::unique_ptr<Panel> real) : truth(std::move(real)) {}

    void setContent(View content) override { truth->setContent(std::move(content)); }

    void show(Rect anchor) override { truth->show(anchor); }

    void close() override {}

    bool isShown() const override { return truth->isShown(); }

    std::unique_ptr<Panel> truth;
};

struct HasTheLastWord : PassedOnPresentation {
    using PassedOnPresentation::PassedOnPresentation;

    std::unique_ptr<Popover> makePopover(PopoverBehavior behavior, std::function<void()> onClose) override {
        return std::make_unique<TalkativePopover>(truth.makePopover(behavior, onClose), onClose);
    }

    std::unique_ptr<Window> makeWindow(std::string title, std::function<void()> onClose) override {
        return std::make_unique<TalkativeWindow>(truth.makeWindow(std::move(title), onClose), onClose);
    }

    std::unique_ptr<Panel> makePanel() override {
        return std::make_unique<LingeringPanel>(truth.makePanel());
    }

    std::unique_ptr<Alert> showAlert(AlertQuestion question,
                                     std::function<void(std::size_t)> onAnswer) override {
        return std::make_unique<TalkativeAlert>(truth.showAlert(std::move(question), onAnswer),
                                                [onAnswer] { onAnswer(0); });
    }
};

/// As when nothing comes up although everything says so.
struct ListsNothing : WindowServer {
    explicit ListsNothing(WindowServer& real) : truth(real) {}

    WindowServerMenuBar::Functions* menuBarFunctions() override { return truth.menuBarFunctions(); }

    std::vector<OnScreenWindow> onScreenWindows() const override { return {}; }

    WindowServer& truth;
};

} // namespace

std::vector<PlantedLie> liesAboutWindows() {
    constexpr auto family = "presentation";
    return {
        lie<TellsTwice>("tellsTwice", family,
                        {"A popover shows at its item, and tells once that it has closed.",
                         "A popover can be shown again, whatever its behaviour was at first.",
                         "A window shows every kind of view, and tells once that it closes."}),
        lie<HasTheLastWord>(
            "hasTheLastWord", family,
            {"A popover that is destroyed closes without telling.",
             "A popover of an item without a window isn't shown.",
             "A panel shows below its anchor, where the window server lists it, until it goes.",
             "An alert that is destroyed goes without an answer.",
             "A recorder's button takes the keyboard, and the recorder is told when it goes.",
             "A window that is told to opens below the menu bar, at the right.",
             "A window that is destroyed closes without telling."}),
        lie<ListsNothing>("listsNothing", family,
                          {"A popover shows at its item, and tells once that it has closed.",
                           "A popover that is destroyed closes without telling.",
                           "A window shows every kind of view, and tells once that it closes.",
                           "A window that is destroyed closes without telling.",
                           "A panel shows below its anchor, where the window server lists it, until it goes.",
                           "An alert that is destroyed goes without an answer."}),
        lie<ListsNothing>("listsNoItems", "status items",
                          {"Of a drawn item AppKit, its frame and the window server's list tell the same.",
                           "An item is at one place for AppKit, Accessibility and the window server."}),
    };
}

} // namespace mac_model
