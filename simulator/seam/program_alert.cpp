#include "seam/program_alert.h"

#include "screen/keyboard_focus.h"
#include "screen/placement.h"
#include "system/bundles_on_disk.h"
#include "views/view_builders.h"

#include <utility>
#include <vector>

namespace mac_model {

using tavrin::column;
using tavrin::text;

namespace {

constexpr double contentWidth = 300;
constexpr double padding = 20;
constexpr double iconSize = 64;
constexpr double buttonHeight = 28;

/// All are as wide as the text, so that none says more by its size than by being the default.
View alertButton(std::string title, std::function<void()> press, bool isDefault) {
    const auto style = isDefault ? ButtonStyle::Prominent : ButtonStyle::Bordered;
    auto view = tavrin::button(std::move(title), std::move(press), {.style = style, .isDefault = isDefault});
    view.width = contentWidth - 2 * padding;
    view.height = buttonHeight;
    return view;
}

} // namespace

ProgramAlert::ProgramAlert(ProgramPresentation& presentation, AlertQuestion question,
                           std::function<void(std::size_t)> onAnswer, ProgramCallbacks callbacks)
    : presentation_(presentation)
    , onAnswer_(std::move(onAnswer))
    , surface_(presentation.stack_, std::move(callbacks),
               {.kind = SurfaceKind::Alert,
                .title = question.messageText,
                .layOut = [this](Surface& surface, const View& content) { layOut(surface, content); }}) {
    surface_.setContent(content(question));
    if (surface_.open()) bringToFront();
}

void ProgramAlert::layOut(Surface& surface, const View& content) const {
    const auto screen = screenFor(presentation_.mac_.screens.screens(), {});
    surface.frame = windowFrame(measured(content, contentWidth), screen);
    showAnew(surface, laidOut(content, surface.frame));
}

/// macOS knows no icon of an application that isn't installed, and keeps the program's own.
tavrin::IconOfApplication ProgramAlert::iconFor(const AlertQuestion& question) const {
    const auto& mac = presentation_.mac_;
    const bool isKnown =
        question.icon && nameOfApplication(question.icon->bundleIdentifier, mac.bundles, mac.processes);
    return isKnown ? *question.icon : tavrin::IconOfApplication{mac.program.info().bundleIdentifier};
}

View ProgramAlert::content(const AlertQuestion& question) {
    std::vector<View> children{tavrin::icon(iconFor(question), iconSize),
                               text(question.messageText, {.style = TextStyle::Heading, .isCentered = true}),
                               text(question.informativeText, {.isCentered = true})};
    std::vector<KeyAction> keys;
    for (std::size_t i = 0; i < question.buttons.size(); ++i) {
        const auto press = [this, i] { answer(i); };
        children.push_back(alertButton(question.buttons[i], press, i == 0));
        if (question.buttons[i] == "Cancel") keys.push_back({"escape", press});
    }
    auto view = column(std::move(children), {.padding = padding, .width = contentWidth, .isCentered = true});
    view.keyActions = std::move(keys);
    return view;
}

void ProgramAlert::answer(std::size_t button) {
    surface_.close();
    // The last thing done, because it may destroy the alert.
    if (const auto tell = std::exchange(onAnswer_, nullptr)) tell(button);
}

} // namespace mac_model
