#include "seam/program_alert.h"

#include "screen/placement.h"
#include "views/view_builders.h"

#include <utility>
#include <vector>

namespace mac_model {

namespace {

constexpr double contentWidth = 300;
constexpr double iconSize = 64;

tavrin::View iconView(const tavrin::IconOfApplication& icon) {
    auto view = tavrin::simple(tavrin::ViewKind::Icon);
    view.icon = icon;
    view.width = view.height = iconSize;
    return view;
}

} // namespace

ProgramAlert::ProgramAlert(ProgramPresentation& presentation, tavrin::AlertQuestion question,
                           std::function<void(std::size_t)> onAnswer, ProgramCallbacks callbacks)
    : presentation_(presentation)
    , callbacks_(std::move(callbacks))
    , onAnswer_(std::move(onAnswer)) {
    if (!callbacks_.isOpen()) return;
    const auto screen = screenFor(presentation_.mac_.screens.screens(), {});
    const auto shown = content(question);
    Surface alert;
    alert.kind = SurfaceKind::Alert;
    alert.owner = callbacks_.process();
    alert.title = question.messageText;
    alert.deliver = callbacks_.deliver();
    alert.onDismissed = [this] { surface_ = SurfaceIdentifier::None; };
    alert.frame = windowFrame(measured(shown, contentWidth), screen);
    alert.content = laidOut(shown, alert.frame);
    surface_ = presentation_.stack_.add(std::move(alert)).identifier;
    bringToFront();
}

void ProgramAlert::bringToFront() {
    presentation_.stack_.raise(surface_);
    presentation_.stack_.makeKey(surface_);
}

tavrin::View ProgramAlert::content(const tavrin::AlertQuestion& question) {
    const tavrin::IconOfApplication own{presentation_.mac_.program.info().bundleIdentifier};
    std::vector<tavrin::View> children{
        iconView(question.icon.value_or(own)),
        tavrin::text(question.messageText, {.style = tavrin::TextStyle::Heading, .isCentered = true}),
        tavrin::text(question.informativeText, {.isCentered = true})};
    std::vector<tavrin::KeyAction> keys;
    for (std::size_t i = 0; i < question.buttons.size(); ++i) {
        const auto press = [this, i] { answer(i); };
        auto button = tavrin::button(
            question.buttons[i], press,
            {.style = i == 0 ? tavrin::ButtonStyle::Prominent : tavrin::ButtonStyle::Bordered});
        button.isDefaultButton = i == 0;
        children.push_back(std::move(button));
        if (question.buttons[i] == "Cancel") keys.push_back({"escape", press});
    }
    auto view =
        tavrin::column(std::move(children), {.padding = 20, .width = contentWidth, .isCentered = true});
    view.keyActions = std::move(keys);
    return view;
}

void ProgramAlert::answer(std::size_t button) {
    presentation_.stack_.remove(std::exchange(surface_, SurfaceIdentifier::None));
    // The last thing done, because it may destroy the alert.
    if (const auto tell = std::exchange(onAnswer_, nullptr)) tell(button);
}

} // namespace mac_model
