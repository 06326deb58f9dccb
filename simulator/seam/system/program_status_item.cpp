#include "seam/system/program_status_item.h"

namespace mac_model {

namespace {

constexpr int majorVersionOfLatePlaces = 26;

Seconds placementTime(const Behaviour& behaviour) {
    if (behaviour.version.major < majorVersionOfLatePlaces) return Seconds{0};
    switch (behaviour.uncertainties.placement) {
    case Placement::Slow:
        return Seconds{1.2};
    case Placement::Prompt:
        return Seconds{0};
    case Placement::VerySlow:
        return Seconds{4};
    }
    return Seconds{0};
}

} // namespace

ProgramStatusItem::ProgramStatusItem(ProgramSide side, double length)
    : side_(std::move(side))
    , createdAt_(side_.mac.scheduler.now()) {
    if (side_.isOpen()) identifier_ = side_.mac.statusItems.add(side_.connection, side_.domain(), length);
}

ProgramStatusItem::~ProgramStatusItem() {
    if (side_.isOpen()) side_.mac.statusItems.remove(identifier_);
}

// The end of the process has removed the item: then the identifier stands for nothing and changes are
// ignored.

const StatusItemRecord* ProgramStatusItem::record() const { return side_.mac.statusItems.find(identifier_); }

void ProgramStatusItem::setLength(double length) { side_.mac.statusItems.setLength(identifier_, length); }

double ProgramStatusItem::length() const { return record() ? record()->length : 0; }

void ProgramStatusItem::setAutosaveName(std::string name) {
    side_.mac.statusItems.setAutosaveName(identifier_, std::move(name));
}

void ProgramStatusItem::setVisible(bool visible) { side_.mac.statusItems.setVisible(identifier_, visible); }

template <class Change>
void ProgramStatusItem::changeAppearance(const Change& change) {
    if (!record()) return;
    auto appearance = record()->appearance;
    change(appearance);
    side_.mac.statusItems.setAppearance(identifier_, std::move(appearance));
}

void ProgramStatusItem::setImage(TemplateImage image) {
    changeAppearance([&](ItemAppearance& appearance) { appearance.image = std::move(image); });
}

void ProgramStatusItem::setToolTip(std::string text) {
    if (record()) side_.mac.statusItems.setTexts(identifier_, record()->spec.description, std::move(text));
}

void ProgramStatusItem::setAccessibilityLabel(std::string label) {
    if (record()) side_.mac.statusItems.setTexts(identifier_, std::move(label), record()->spec.help);
}

void ProgramStatusItem::setAccessibilityValue(std::string value) {
    side_.mac.statusItems.setSpokenValue(identifier_, std::move(value));
}

void ProgramStatusItem::setAccessibilityActions(std::vector<tavrin::ViewAction> actions) {
    side_.mac.statusItems.setActions(identifier_, std::move(actions));
}

void ProgramStatusItem::setHiddenFromAccessibility(bool hidden) {
    side_.mac.statusItems.setHiddenFromAccessibility(identifier_, hidden);
}

void ProgramStatusItem::setAlpha(double alpha) {
    changeAppearance([&](ItemAppearance& appearance) { appearance.alpha = alpha; });
}

void ProgramStatusItem::setDecorations(bool pillShown, double glow) {
    changeAppearance([&](ItemAppearance& appearance) {
        appearance.isPillShown = pillShown;
        appearance.glow = glow;
    });
}

void ProgramStatusItem::setAction(std::function<void(StatusItemPress)> action) {
    side_.mac.statusItems.setAction(identifier_, std::move(action));
}

bool ProgramStatusItem::isPlaced() const {
    return side_.mac.scheduler.now() >= createdAt_ + placementTime(side_.mac.behaviour);
}

std::optional<Rect> ProgramStatusItem::frame() const {
    if (!record()) return std::nullopt;
    if (isPlaced()) return side_.mac.arrangement.frameForOwner(*record());
    return Rect{0, 0, record()->frame.value_or(Rect{}).width, 0};
}

bool ProgramStatusItem::isDrawn() const {
    return isPlaced() && side_.mac.arrangement.isDrawnForOwner(identifier_);
}

} // namespace mac_model
