#pragma once

#include "input/event_server.h"
#include "input/person.h"
#include "mac/mac.h"
#include "mac/screen_content.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace mac_model {

/// The program's synthetic events among the person's: what enters at a tap moves the one pointer and reaches
/// whatever lies there; what names a window reaches that status item wherever it stands. Nobody here knows
/// what the events are for.
class SyntheticInput {
  public:
    SyntheticInput(Mac&, ScreenContent&, Person&);
    SyntheticInput(const SyntheticInput&) = delete;
    SyntheticInput& operator=(const SyntheticInput&) = delete;
    ~SyntheticInput();

  private:
    /// A status item that was pressed through its window.
    struct WindowPress {
        StatusItemIdentifier item{};
        std::int64_t number = 0; // of the press event, else 0 when what follows must be ignored
        tavrin::Point pressedAt;
        double offset = 0; // from the item's left edge to where it was pressed
        bool isCommand = false;
        bool isCarried = false;
    };

    void receive(const PostedEvent&);
    void receive(const PostedKey&);
    void record(const PostedEvent&);
    void enterAtTap(const tavrin::MouseEvent&);
    void followTap(const tavrin::MouseEvent&);
    void movePointerOnly(const tavrin::MouseEvent&);
    void pressAtPointer(const tavrin::MouseEvent&);
    void dragPointer(const tavrin::MouseEvent&);
    void releaseAtPointer(const tavrin::MouseEvent&);
    void nudge();

    void giveToWindow(const tavrin::MouseEvent&, std::optional<tavrin::ProcessIdentifier>);
    void pressWindow(const StatusItemRecord&, const tavrin::MouseEvent&);
    void dragWindow(const tavrin::MouseEvent&);
    void releaseWindow(const tavrin::MouseEvent&);
    bool isCarryingByWindow() const;

    std::int64_t usableNumber(const tavrin::MouseEvent& press) const;
    bool continues(const tavrin::MouseEvent&, std::int64_t pressNumber) const;
    void abandonDrags();
    tavrin::Point onScreen(tavrin::Point) const;

    Mac& mac_;
    ScreenContent& content_;
    Person& person_;
    WorldCalls world_;
    std::optional<std::int64_t> pressNumber_; // while the program holds the pointer's button
    std::optional<WindowPress> windowPress_;
    int nudges_ = 0;
    std::vector<tavrin::Subscription> subscriptions_;
};

} // namespace mac_model
