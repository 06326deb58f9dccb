#include "pins/running/pinned_notice.h"

#include "platform/application.h"
#include "platform/screens.h"
#include "views/view_builders.h"

#include <utility>
#include <vector>

namespace tavrin {

namespace {

constexpr double contentWidth = 320;
constexpr double textWidth = 260;

View words(std::string content, TextOptions options) {
    auto view = text(std::move(content), options);
    view.width = textWidth;
    return view;
}

View signOf(PinnedNotice::Style style) {
    if (style == PinnedNotice::Style::Waiting) return progress();
    return symbol("exclamationmark.triangle.fill", 18, Tone::Warning);
}

} // namespace

void PinnedNoticePanel::show(PinnedNotice notice, std::optional<Rect> anchor) {
    close();
    panel_ = platform_.presentation.makePanel();
    if (!panel_) return;
    platform_.application.announce(notice.title + ". " + notice.message);
    const bool passes = notice.style == PinnedNotice::Style::Failure;
    panel_->setContent(content(std::move(notice)));
    panel_->show(anchor.value_or(anchorWithout()));
    if (passes) timer_ = platform_.scheduler.callAfter(failureTime, [this] { close(); });
}

void PinnedNoticePanel::close() {
    platform_.scheduler.cancelTimer(std::exchange(timer_, TimerIdentifier::None));
    panel_.reset();
}

Rect PinnedNoticePanel::anchorWithout() const {
    const auto screens = platform_.screens.screens();
    if (screens.empty()) return {};
    const auto& primary = screens.front();
    // Within the frame: the point at its right edge lies on the next display.
    return {primary.frame.maxX() - 1, primary.frame.minY(), 1, primary.menuBarHeight};
}

View PinnedNoticePanel::content(PinnedNotice notice) {
    std::vector<View> lines{words(std::move(notice.title), {.style = TextStyle::Heading}),
                            words(std::move(notice.message), {.tone = Tone::Secondary})};
    std::vector<View> buttons;
    if (notice.actionTitle)
        buttons.push_back(button(*notice.actionTitle, [this, action = std::move(notice.action)] {
            const auto perform = action; // outlives the panel that holds it
            close();
            if (perform) perform();
        }));
    if (notice.style == PinnedNotice::Style::Failure) buttons.push_back(button("Close", [this] { close(); }));
    if (!buttons.empty()) lines.push_back(row(std::move(buttons)));
    return stack(kinds::Row{}, {signOf(notice.style), column(std::move(lines))},
                 {.spacing = 10, .padding = 14, .width = contentWidth});
}

} // namespace tavrin
