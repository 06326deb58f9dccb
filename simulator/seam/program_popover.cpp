#include "seam/program_popover.h"

#include "menu_bar/press_place.h"
#include "screen/keyboard_focus.h"
#include "screen/placement.h"
#include "views/view_layout.h"

#include <algorithm>
#include <utility>

namespace mac_model {

ProgramPopover::ProgramPopover(ProgramPresentation& presentation, PopoverBehavior behavior,
                               ProgramCallbacks callbacks)
    : presentation_(presentation)
    , behavior_(behavior)
    , surface_(presentation.stack_, std::move(callbacks),
               {.kind = SurfaceKind::Popover,
                .layOut = [this](Surface& surface, const View& content) { layOut(surface, content); },
                .onGone = [this] { surface_.callbacks().postOnClose(); }}) {
    presentation_.popovers_.push_back(this);
}

ProgramPopover::~ProgramPopover() { std::erase(presentation_.popovers_, this); }

OutsidePress ProgramPopover::outsidePress() const {
    const bool isTransient = behavior_ == PopoverBehavior::Transient;
    return isTransient ? OutsidePress::Closes : OutsidePress::Ignored;
}

void ProgramPopover::setBehavior(PopoverBehavior behavior) {
    behavior_ = behavior;
    if (auto* surface = surface_.shown()) surface->outsidePress = outsidePress();
    followItem();
}

bool ProgramPopover::show(StatusItem& item, Rect area) {
    const auto frame = item.frame();
    if (!frame) return false;
    item_ = identifierOf(item);
    itemOrigin_ = frame->origin();
    area_ = onScreenOfPress(area);
    if (!isAnchorDrawn(*frame))
        return presentation_.mac_.behaviour.uncertainties.hiddenAnchor == HiddenAnchor::Claims;
    if (!surface_.open()) return false;
    presentation_.stack_.makeKey(surface_.identifier());
    return true;
}

/// Until macOS has placed the item, the program is told a frame without height.
bool ProgramPopover::isAnchorDrawn(Rect frameForProgram) const {
    const auto* record = presentation_.mac_.statusItems.find(item_);
    return record && record->isDrawn && frameForProgram.height > 0;
}

/// The popover opens on the screen on whose menu bar the person pressed the item.
Rect ProgramPopover::onScreenOfPress(Rect area) const {
    const auto* record = presentation_.mac_.statusItems.find(item_);
    return record ? areaAtPress(*record, area, presentation_.mac_.screens.screens()) : area;
}

void ProgramPopover::layOut(Surface& surface, const View& content) const {
    const auto screen = screenFor(presentation_.mac_.screens.screens(), area_.middle());
    surface.anchor = item_;
    surface.outsidePress = outsidePress();
    surface.frame = popoverFrame(measured(content, tavrin::popoverWidthMax), area_, screen);
    surface.arrowX = std::clamp(area_.midX(), surface.frame.minX(), surface.frame.maxX());
    showAnew(surface, laidOut(content, surface.frame));
}

/// Displays may have gone from under it.
bool ProgramPopover::isOnScreen() {
    const auto middle = surface_.shown()->frame.middle();
    return std::ranges::any_of(presentation_.mac_.screens.screens(),
                               [&](const ScreenSpec& screen) { return screen.frame.contains(middle); });
}

void ProgramPopover::followItem() {
    if (!surface_.isOpen() || item_ == StatusItemIdentifier::None) return;
    const auto* record = presentation_.mac_.statusItems.find(item_);
    if (!record || !record->frame) return presentation_.stack_.dismiss(surface_.identifier());
    if (behavior_ == PopoverBehavior::ApplicationDefined && isOnScreen()) return;
    area_.x += record->frame->x - itemOrigin_.x;
    area_.y += record->frame->y - itemOrigin_.y;
    if (record->frame->origin() == itemOrigin_) return;
    itemOrigin_ = record->frame->origin();
    surface_.layOut();
}

} // namespace mac_model
