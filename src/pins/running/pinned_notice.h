#pragma once

#include "concurrency/scheduler.h"
#include "platform/platform.h"
#include "platform/presentation.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace tavrin {

/// A word to the user about a pin.
struct PinnedNotice {
    enum class Style { Failure, Waiting };

    Style style = Style::Failure;
    std::string title;
    std::string message;
    std::optional<std::string> actionTitle;
    std::function<void()> action; // closes the notice first
};

/// Shows one notice at a time, the newest. A failure disappears by itself after a while.
class PinnedNoticePanel {
  public:
    /// Time to read two sentences and reach for the button.
    static constexpr Seconds failureTime{12};

    explicit PinnedNoticePanel(const Platform& platform) : platform_(platform) {}

    PinnedNoticePanel(const PinnedNoticePanel&) = delete;
    PinnedNoticePanel& operator=(const PinnedNoticePanel&) = delete;

    ~PinnedNoticePanel() { close(); }

    /// `anchor` is a rectangle on the screen; without one the notice shows at the right end of the menu bar.
    void show(PinnedNotice notice, std::optional<Rect> anchor);
    void close();

  private:
    View content(PinnedNotice notice);
    Rect anchorWithout() const;

    const Platform& platform_;
    std::unique_ptr<Panel> panel_;
    TimerIdentifier timer_ = TimerIdentifier::None;
};

} // namespace tavrin
