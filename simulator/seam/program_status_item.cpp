#include "seam/program_status_item.h"

#include "mac/mac.h"

namespace mac_model {

ProgramStatusItem::ProgramStatusItem(Mac& mac, std::shared_ptr<ProgramConnection> connection, double length)
    : mac_(mac)
    , connection_(std::move(connection)) {
    if (connection_->isOpen()) identifier_ = mac_.statusArea().add(connection_, mac_.programDomain(), length);
}

ProgramStatusItem::~ProgramStatusItem() {
    if (connection_->isOpen()) mac_.statusArea().remove(identifier_);
}

// The end of the process has removed the item: then the identifier stands for nothing and changes are
// ignored.

const StatusItemRecord* ProgramStatusItem::record() const { return mac_.statusArea().find(identifier_); }

void ProgramStatusItem::setLength(double length) { mac_.statusArea().setLength(identifier_, length); }

double ProgramStatusItem::length() const { return record() ? record()->length : 0; }

void ProgramStatusItem::setAutosaveName(std::string name) {
    mac_.statusArea().setAutosaveName(identifier_, std::move(name));
}

void ProgramStatusItem::setVisible(bool visible) { mac_.statusArea().setVisible(identifier_, visible); }

template <class Change>
void ProgramStatusItem::changeAppearance(const Change& change) {
    if (!record()) return;
    auto appearance = record()->appearance;
    change(appearance);
    mac_.statusArea().setAppearance(identifier_, std::move(appearance));
}

void ProgramStatusItem::setImage(tavrin::TemplateImage image) {
    changeAppearance([&](ItemAppearance& appearance) { appearance.image = std::move(image); });
}

void ProgramStatusItem::setToolTip(std::string text) {
    if (record()) mac_.statusArea().setTexts(identifier_, record()->spec.description, std::move(text));
}

void ProgramStatusItem::setAccessibilityLabel(std::string label) {
    if (record()) mac_.statusArea().setTexts(identifier_, std::move(label), record()->spec.help);
}

void ProgramStatusItem::setHiddenFromAccessibility(bool hidden) {
    mac_.statusArea().setHiddenFromAccessibility(identifier_, hidden);
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

void ProgramStatusItem::setAction(std::function<void(tavrin::StatusItemPress)> action) {
    mac_.statusArea().setAction(identifier_, std::move(action));
}

std::optional<tavrin::Rect> ProgramStatusItem::frame() const {
    return record() ? record()->frame : std::nullopt;
}

bool ProgramStatusItem::isDrawn() const { return mac_.statusArea().isDrawnForOwner(identifier_); }

} // namespace mac_model
