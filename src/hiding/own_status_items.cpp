#include "hiding/own_status_items.h"

#include "concurrency/wait_until.h"
#include "discovery/menu_bar_screen_geometry.h"
#include "hiding/status_item_geometry_policy.h"
#include "platform/workspace.h"

#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace tavrin {

namespace {

/// Small enough that no other item fits between the control and the spacer.
constexpr double spacerOffset = 0.01;

constexpr int firstVersionWithSwitches = 26;

/// A frame without height stands for an item that macOS hasn't placed yet.
std::optional<Rect> placedFrame(const StatusItem* item) {
    const auto frame = item ? item->frame() : std::nullopt;
    return frame && frame->height > 0 ? frame : std::nullopt;
}

} // namespace

OwnStatusItems::OwnStatusItems(const Platform& platform, Settings& settings, MenuBarRuntimeMode mode,
                               std::function<void(StatusItem&)> dressControl)
    : platform_(platform)
    , settings_(settings)
    , usesSpacer_(mode == MenuBarRuntimeMode::divider)
    , dressControl_(std::move(dressControl))
    , positions_(platform.defaults)
    , barSight_(platform.screens, platform.windowServer)
    , statusItemAutosaveVersion_(settings.statusItemAutosaveVersion()) {}

void OwnStatusItems::configureStatusItems(PositionSeed controlSeed) {
    using Force = StatusItemPositionDefaults::Force;
    const auto name = StatusItemAutosaveName::control(statusItemAutosaveVersion_);
    const bool isForced = controlSeed != PositionSeed::IfAbsent;
    const double position = controlSeed == PositionSeed::ForceBesideZero ? 1 : 0;
    if (usesSpacer_ && !isForced) adoptLegacySeparator();
    removePositions(StatusItemAutosaveName::legacySeparator(statusItemAutosaveVersion_));
    // Only at the start: while Tavrin runs it is the user who has switched the item off.
    if (!isForced) forgetHidingFlags();
    if (usesSpacer_) positions_.seed(name, isForced ? Force::Yes : Force::No, position);
    controlItem_ = platform_.statusItems.create(squareStatusItemLength);
    controlItem_->setAutosaveName(name);
    controlItem_->setVisible(true);
    dressControl_(*controlItem_);
    if (usesSpacer_) configureSpacerItem();
}

void OwnStatusItems::adoptLegacySeparator() {
    const auto legacy = StatusItemAutosaveName::legacySeparator(statusItemAutosaveVersion_);
    if (const auto position = positions_.preferredPosition(legacy)) {
        positions_.seed(StatusItemAutosaveName::control(statusItemAutosaveVersion_),
                        StatusItemPositionDefaults::Force::Yes, *position);
    }
}

void OwnStatusItems::forgetHidingFlags() {
    positions_.forgetHidingFlag(StatusItemAutosaveName::control(statusItemAutosaveVersion_));
    positions_.forgetHidingFlag(StatusItemAutosaveName::spacer(statusItemAutosaveVersion_));
}

void OwnStatusItems::removePositions(const std::string& autosaveName) {
    positions_.remove([&](std::string_view name) { return name == autosaveName; });
}

void OwnStatusItems::configureSpacerItem() {
    spacerItem_.reset();
    const auto control = StatusItemAutosaveName::control(statusItemAutosaveVersion_);
    const auto name = StatusItemAutosaveName::spacer(statusItemAutosaveVersion_);
    positions_.seed(name, StatusItemPositionDefaults::Force::Yes,
                    positions_.preferredPosition(control).value_or(0) + spacerOffset);
    spacerItem_ = platform_.statusItems.create(0);
    spacerItem_->setAutosaveName(name);
    spacerItem_->setVisible(true);
    spacerItem_->setHiddenFromAccessibility(true);
}

void OwnStatusItems::removeStatusItems() {
    spacerItem_.reset();
    controlItem_.reset();
}

void OwnStatusItems::advanceAutosaveVersion() {
    if (statusItemAutosaveVersion_ < std::numeric_limits<std::int64_t>::max()) ++statusItemAutosaveVersion_;
    settings_.setStatusItemAutosaveVersion(statusItemAutosaveVersion_);
}

void OwnStatusItems::removeSupersededStatusItemDefaults() {
    const std::vector<std::string> current{StatusItemAutosaveName::control(statusItemAutosaveVersion_),
                                           StatusItemAutosaveName::spacer(statusItemAutosaveVersion_)};
    positions_.removeSuperseded(current, statusItemAutosaveVersion_);
}

void OwnStatusItems::setSpacerLength(double length) {
    if (spacerItem_) spacerItem_->setLength(length);
}

void OwnStatusItems::setPillShown(bool shown) {
    isPillShown_ = shown;
    decorate();
}

void OwnStatusItems::setGlow(double glow) {
    glow_ = glow;
    decorate();
}

void OwnStatusItems::decorate() {
    if (controlItem_) controlItem_->setDecorations(isPillShown_, glow_);
}

Task<> OwnStatusItems::waitForPlacement() const {
    const auto isPlaced = [this] { return controlFrame() && (!spacerItem_ || spacerFrame()); };
    (void)co_await waitUntil(platform_.scheduler, isPlaced, placementPollInterval, placementWaitMax);
}

bool OwnStatusItems::isAwaitingPlacement() const {
    const auto frame = controlItem_ ? controlItem_->frame() : std::nullopt;
    return (frame && frame->height == 0) || platform_.screens.screens().empty();
}

bool OwnStatusItems::isKeptOutOfMenuBar() const {
    const auto frame = controlFrame();
    return frame && platform_.workspace.operatingSystemVersion().major >= firstVersionWithSwitches &&
           MenuBarScreenGeometry::isParked(*frame, platform_.screens.screens());
}

std::string OwnStatusItems::whyControlIsUnseen() const {
    return isKeptOutOfMenuBar()
               ? "macOS keeps Tavrin out of the menu bar. Allow it in System Settings › Menu Bar."
               : "Tavrin’s control can’t be seen in the menu bar right now. To come back to this window, "
                 "open Tavrin again.";
}

std::optional<Rect> OwnStatusItems::controlFrame() const { return placedFrame(controlItem_.get()); }

std::optional<Rect> OwnStatusItems::spacerFrame() const { return placedFrame(spacerItem_.get()); }

std::optional<Rect> OwnStatusItems::validControlGlyphFrame() const {
    const auto glyph = controlGlyphFrame();
    if (!glyph) return std::nullopt;
    using namespace MenuBarScreenGeometry;
    const auto screens = platform_.screens.screens();
    return isFullyVisibleInStatusLane(*glyph, screens, reportedOverlap) ? glyph : std::nullopt;
}

ControlSight OwnStatusItems::controlSight() const {
    if (controlItem_ && controlItem_->isDrawn()) return ControlSight::drawn;
    return isBarVisible() ? ControlSight::gone : ControlSight::barNotVisible;
}

Subscription OwnStatusItems::onSightChanged(std::function<void()> handler) {
    return together(platform_.statusItems.onDrawnChanged(handler), platform_.screens.onShownChanged(handler));
}

bool OwnStatusItems::isSpacerLeftOfControl() const {
    const auto spacer = spacerFrame();
    const auto control = controlFrame();
    return spacer && control && StatusItemGeometryPolicy::isLeftOf(*spacer, *control);
}

HidingBoundary OwnStatusItems::boundary() const {
    const auto control = controlFrame();
    return control ? HidingBoundary(boundaryX(), *control, platform_.screens.screens()) : boundaryX();
}

double OwnStatusItems::boundaryX() const {
    if (const auto spacer = spacerFrame()) return spacer->maxX();
    if (const auto control = controlFrame()) return control->minX();
    return -std::numeric_limits<double>::infinity();
}

} // namespace tavrin
