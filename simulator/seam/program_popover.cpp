#include "seam/program_popover.h"

#include "screen/placement.h"
#include "views/view_layout.h"

#include <algorithm>
#include <utility>

namespace mac_model {

namespace {} // namespace

ProgramPopover::ProgramPopover(ProgramPresentation& presentation, tavrin::PopoverBehavior behavior,
                               ProgramCallbacks callbacks)
    : presentation_(presentation)
    , behavior_(behavior)
    , callbacks_(std::move(callbacks)) {
    presentation_.popovers_.push_back(this);
}

ProgramPopover::~ProgramPopover() {
    presentation_.stack_.remove(surface_);
    std::erase(presentation_.popovers_, this);
}

void ProgramPopover::setContent(tavrin::View content) {
    content_ = std::move(content);
    recorders_.follow(content_);
    if (auto* surface = presentation_.stack_.find(surface_)) layOut(*surface);
    recorders_.followFocus();
}

OutsidePress ProgramPopover::outsidePress() const {
    const bool isTransient = behavior_ == tavrin::PopoverBehavior::Transient;
    return isTransient ? OutsidePress::Closes : OutsidePress::Ignored;
}

void ProgramPopover::setBehavior(tavrin::PopoverBehavior behavior) {
    behavior_ = behavior;
    if (auto* surface = presentation_.stack_.find(surface_)) surface->outsidePress = outsidePress();
}

bool ProgramPopover::show(tavrin::StatusItem& item, tavrin::Rect area) {
    const auto frame = item.frame();
    if (!frame || !callbacks_.isOpen()) return false;
    item_ = identifierOf(item);
    itemOrigin_ = frame->origin();
    area_ = area;
    auto* surface = presentation_.stack_.find(surface_);
    if (!surface) {
        Surface shown;
        shown.kind = SurfaceKind::Popover;
        shown.owner = callbacks_.process();
        shown.outsidePress = outsidePress();
        shown.deliver = callbacks_.deliver();
        shown.onFocusMoved = [this] { callbacks_.deliver()([this] { recorders_.followFocus(); }); };
        shown.onResignedKey = [this] { callbacks_.deliver()([this] { recorders_.windowResignedKey(); }); };
        shown.onDismissed = [this] {
            surface_ = SurfaceIdentifier::None;
            callbacks_.postOnClose();
        };
        surface = &presentation_.stack_.add(std::move(shown));
        surface_ = surface->identifier;
    }
    surface->anchor = item_;
    layOut(*surface);
    presentation_.stack_.makeKey(surface_);
    return true;
}

void ProgramPopover::layOut(Surface& surface) const {
    const auto screen = screenFor(presentation_.mac_.screens.screens(), area_.middle());
    surface.frame = popoverFrame(measured(content_, tavrin::popoverWidthMax), area_, screen);
    surface.arrowX = std::clamp(area_.midX(), surface.frame.minX(), surface.frame.maxX());
    auto content = laidOut(content_, surface.frame);
    carryScrolling(surface.content, content);
    surface.content = std::move(content);
    recorders_.dress(surface);
}

void ProgramPopover::close() {
    if (!isShown()) return;
    presentation_.stack_.remove(std::exchange(surface_, SurfaceIdentifier::None));
    callbacks_.postOnClose();
}

void ProgramPopover::followItem() {
    auto* surface = presentation_.stack_.find(surface_);
    if (!surface || item_ == StatusItemIdentifier::None) return;
    const auto* record = presentation_.mac_.statusItems.find(item_);
    if (!record || !record->frame) return presentation_.stack_.dismiss(surface_);
    area_.x += record->frame->x - itemOrigin_.x;
    area_.y += record->frame->y - itemOrigin_.y;
    if (record->frame->origin() == itemOrigin_) return;
    itemOrigin_ = record->frame->origin();
    layOut(*surface);
}

} // namespace mac_model
