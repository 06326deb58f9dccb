#include "applications/program_panels.h"

#include "screen/titled_window.h"
#include "views/view_builders.h"

#include <utility>

namespace mac_model {

using tavrin::column;
using tavrin::text;

namespace {

View iconOf(const ProgramInfo& program) { return tavrin::icon({program.bundleIdentifier}, 64); }

} // namespace

void ProgramPanels::show(SurfaceIdentifier& shown, Surface surface, const View& content) {
    const auto connection = program_.connection();
    if (!connection) return;
    if (stack_.find(shown) == nullptr) {
        surface.owner = connection->process();
        surface.deliver = [this](Work work) { world_.after(Seconds{0}, std::move(work)); };
        placeTitledWindow(surface, content, screens_.screens());
        shown = stack_.add(std::move(surface)).identifier;
    }
    stack_.raise(shown);
    stack_.makeKey(shown);
}

void ProgramPanels::showAbout() {
    const auto& program = program_.info();
    Surface panel;
    panel.kind = SurfaceKind::Panel;
    panel.title = "About " + program.name;
    show(about_, std::move(panel),
         column({iconOf(program), text(program.name, {.style = TextStyle::Heading}),
                 text(program.displayVersion, {.style = TextStyle::Caption})},
                {.padding = 24, .width = 284, .isCentered = true}));
}

void ProgramPanels::showUpToDate() {
    const auto& program = program_.info();
    auto done = tavrin::button("OK", [this] { stack_.dismiss(upToDate_); },
                               {.style = ButtonStyle::Prominent, .isDefault = true});
    Surface alert;
    alert.kind = SurfaceKind::Alert;
    alert.title = "Software Update";
    show(upToDate_, std::move(alert),
         column({iconOf(program), text("You’re up to date!", {.style = TextStyle::Heading}),
                 text(program.name + " is currently the newest version available.", {.isCentered = true}),
                 std::move(done)},
                {.padding = 20, .width = 300, .isCentered = true}));
}

} // namespace mac_model
