#include "input/person.h"

#include "screen/keyboard_focus.h"
#include "screen/placement.h"
#include "screen/surface_keys.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace mac_model {

using tavrin::WatchedEventType;

namespace {

bool has(const std::vector<Modifier>& modifiers, Modifier modifier) {
    return std::ranges::find(modifiers, modifier) != modifiers.end();
}

} // namespace

void Person::moveTo(Point point, PressedBy by) {
    const bool isDrag = devices_.pointer.buttons.contains(MouseButton::Left);
    devices_.counts.note(isDrag ? MouseEventType::LeftDragged : MouseEventType::Moved);
    devices_.pointer.at = point;
    tell(isDrag ? WatchedEventType::LeftDragged : WatchedEventType::Moved);
    auto& hand = handOf(by);
    hand.viewDrag.pointerMoved();
    if (hand.viewDrag.isUnderway()) {
        hand.held = {};
        return;
    }
    if (reach_.menus.isOpen()) moveOverMenu(point);
    if (const auto* held = std::get_if<HeldTitleBar>(&hand.held)) moveWindow(*held);
    if (auto* place = std::get_if<HeldPlace>(&hand.held)) carry(hand, *place);
}

void Person::moveOverMenu(Point point) {
    const auto title = reach_.applicationMenus.titleAt(point);
    const auto openTitle = reach_.menus.anchor()->title;
    if (title && openTitle && title != openTitle) reach_.applicationMenus.toggle(*title, point);
    reach_.menus.pointerMovedTo(point);
}

/// A drag goes to where its press went.
void Person::tell(WatchedEventType type, std::optional<tavrin::ScrollSample> scroll) {
    if (type != WatchedEventType::LeftDragged) receiver_ = receiverHere();
    devices_.onWatched.emit({{type, at(), scroll}, receiver_});
}

ProcessIdentifier Person::receiverHere() const {
    if (reach_.menus.isOpen()) return reach_.menus.owner();
    if (const auto* surface = reach_.surfaces.at(at())) return surface->owner;
    const auto* item = reach_.applicationMenus.titleAt(at()) ? nullptr : reach_.arrangement.itemAt(at());
    return item ? item->owner : 0;
}

void Person::press(MouseButton button, const std::vector<Modifier>& modifiers, PressedBy by) {
    devices_.pointer.buttons.insert(button);
    tell(button == MouseButton::Left ? WatchedEventType::LeftDown : WatchedEventType::RightDown);
    if (button == MouseButton::Left) devices_.counts.note(MouseEventType::LeftDown);
    if (joinsPostedPress(button, by)) return;
    letGoOfAll(by);
    makeDisplayActive();
    if (button == MouseButton::Left) handOf(by).holdsLeftButton = true;
    if (reach_.menus.isOpen() && pressWithOpenMenu() == MenuPress::Taken) return;
    const auto closed = reach_.surfaces.dismissForPressAt(at());
    if (auto* surface = reach_.surfaces.at(at())) return pressSurface(handOf(by), *surface, button);
    handOf(by).held = pressMenuBarOrDesktop(button, modifiers, closed, by);
}

void Person::makeDisplayActive() {
    const auto& screens = reach_.screens.screens();
    const auto found = std::ranges::find_if(
        screens, [this](const ScreenSpec& screen) { return screen.frame.contains(at()); });
    if (found != screens.end()) reach_.screens.setActive(static_cast<std::size_t>(found - screens.begin()));
}

void Person::letGoOfAll(PressedBy by) {
    auto& hand = handOf(by);
    const auto* place = std::get_if<HeldPlace>(&hand.held);
    if (place && isCarrying(*place)) reach_.itemDrag.putDown(PutDown::WhereItWas);
    hand.held = {};
    hand.viewDrag.cancel();
}

void Person::liftLeftButton() {
    devices_.pointer.buttons.erase(MouseButton::Left);
    person_.holdsLeftButton = postedEvents_.holdsLeftButton = false;
}

/// A press outside a menu only closes it, unless it falls on something else in the menu bar.
Person::MenuPress Person::pressWithOpenMenu() {
    if (reach_.menus.contains(at())) return MenuPress::Taken;
    const auto anchor = reach_.menus.anchor();
    const auto title = reach_.applicationMenus.titleAt(at());
    const auto* item = title ? nullptr : reach_.arrangement.itemAt(at());
    reach_.menus.close();
    const bool isOnAnchor = item ? anchor->item == item->identifier : title && anchor->title == title;
    return (item || title) && !isOnAnchor ? MenuPress::GoesOn : MenuPress::Taken;
}

/// A press on what an alert of the same application waits in front of.
void Person::bringForward(const Surface& alert) {
    reach_.surfaces.raise(alert.identifier);
    reach_.surfaces.makeKey(alert.identifier);
    reach_.processes.activate(alert.owner);
}

void Person::pressSurface(Hand& hand, Surface& surface, MouseButton button) {
    if (const auto* alert = reach_.surfaces.alertBefore(surface)) return bringForward(*alert);
    if (button == MouseButton::Right) return openContextMenu(surface);
    const auto identifier = surface.identifier;
    const bool isOnTitleBar = surface.hasTitleBar && !surface.contentFrame().contains(at());
    if (isOnTitleBar && surface.closeButton().contains(at()))
        hand.held = HeldCloseButton{identifier};
    else if (isOnTitleBar)
        hand.held = HeldTitleBar{identifier, {at().x - surface.frame.x, at().y - surface.frame.y}};
    else if (const auto path = controlAt(surface.content, at()))
        hand.held = pressControl(surface, *path);
    if (!isOnTitleBar) {
        focusAt(surface, at());
        hand.viewDrag.begin(surface);
    }
    if (surface.kind == SurfaceKind::Window) reach_.surfaces.raise(identifier);
    reach_.surfaces.makeKey(identifier);
    if (surface.kind != SurfaceKind::Panel) reach_.processes.activate(surface.owner);
}

/// A window's title bar never goes under the menu bar.
void Person::moveWindow(const HeldTitleBar& held) {
    auto* surface = reach_.surfaces.find(held.surface);
    if (!surface) return;
    const auto screen = screenFor(reach_.screens.screens(), at());
    const double top = std::max(at().y - held.grip.y, screen.frame.y + screen.menuBarHeight);
    SurfaceStack::moveBy(*surface, at().x - held.grip.x - surface->frame.x, top - surface->frame.y);
}

/// Most controls act when they are let go of.
Person::Held Person::pressControl(const Surface& surface, const ViewPath& path) {
    const auto& control = *viewAt(surface.content, path);
    const auto* button = std::get_if<tavrin::kinds::Button>(&control.view.kind);
    if (!button || !button->actsWhenPressed)
        return HeldControl{surface.identifier, path, control.view.kind.index()};
    perform(surface, control);
    return {};
}

void Person::openContextMenu(const Surface& surface) {
    const auto* view = contextMenuAt(surface.content, at());
    if (!view) return;
    MenuRequest request;
    for (const auto& action : view->view.contextMenu) {
        MenuItemSpec entry;
        entry.title = action.name;
        request.items.push_back(std::move(entry));
    }
    request.area = {at().x, at().y, 0, 0};
    request.owner = surface.owner;
    request.onChosen = [deliver = surface.deliver, actions = view->view.contextMenu](const MenuPath& path) {
        deliver(actions[path.front()].perform);
    };
    reach_.menus.open(std::move(request));
}

Person::Held Person::pressMenuBarOrDesktop(MouseButton button, const std::vector<Modifier>& modifiers,
                                           const std::vector<StatusItemIdentifier>& closed, PressedBy by) {
    // Menus win over the status items that reach so far left.
    if (const auto title = reach_.applicationMenus.titleAt(at())) {
        const auto* owner = reach_.processes.menuBarOwner();
        const bool isKept = owner && reach_.surfaces.alertOf(owner->identifier);
        if (button == MouseButton::Left && !isKept) reach_.applicationMenus.toggle(*title, at());
        return {};
    }
    if (const auto* item = reach_.arrangement.itemAt(at())) return pressItem(*item, modifiers, closed, by);
    if (button == MouseButton::Left && reach_.overflow.openAt(at())) return {};
    const auto finder = reach_.processes.withBundle("com.apple.finder");
    if (!isOnMenuBar(at()) && !finder.empty()) reach_.processes.activate(finder.front());
    return {};
}

Person::Held Person::pressItem(const StatusItemRecord& item, const std::vector<Modifier>& modifiers,
                               const std::vector<StatusItemIdentifier>& closed, PressedBy by) {
    // With Command the press belongs to macOS, which lets the person move the item.
    if (has(modifiers, Modifier::Command)) return pressPlace(item, by);
    if (reach_.surfaces.alertOf(item.owner)) return {};
    if (item.origin == ItemOrigin::Program)
        return HeldItem{item.identifier, has(modifiers, Modifier::Control)};
    const bool hasJustClosed = std::ranges::find(closed, item.identifier) != closed.end();
    if (hasJustClosed) return {};
    reach_.items.notePress(item.identifier, at());
    reach_.itemSurfaces.toggle(item.identifier);
    return {};
}

Person::Held Person::pressPlace(const StatusItemRecord& item, PressedBy by) {
    if (by == PressedBy::Person || reach_.itemDrag.followsPostedEvents())
        return HeldPlace{item.identifier, at(), reach_.screens.onPrimaryBar(at()).x - item.frame->x};
    if (item.origin == ItemOrigin::DesktopFile) reach_.itemSurfaces.toggle(item.identifier);
    return HeldItem{.item = item.identifier, .isBlindClick = true};
}

bool Person::isOnMenuBar(Point point) const {
    return std::ranges::any_of(reach_.screens.screens(), [&](const ScreenSpec& screen) {
        return screen.frame.contains(point) && point.y < screen.frame.y + screen.menuBarHeight;
    });
}

void Person::carry(Hand& hand, HeldPlace& place) {
    constexpr double threshold = 4; // points
    const bool hasMoved = std::hypot(at().x - place.pressedAt.x, at().y - place.pressedAt.y) > threshold;
    if (!place.isCarried && hasMoved) {
        place.isCarried = reach_.itemDrag.pickUp(place.item);
        if (!place.isCarried) hand.held = {};
    }
    if (std::holds_alternative<HeldPlace>(hand.held) && isCarrying(place))
        reach_.itemDrag.carryTo(reach_.screens.onPrimaryBar(at()).x - place.offset);
}

/// The item's owner may have ended, and macOS puts the item down when the displays change.
bool Person::isCarrying(const HeldPlace& place) const {
    const auto* item = reach_.items.find(place.item);
    return place.isCarried && item && item->isCarried;
}

void Person::letGo(const HeldPlace& place) {
    if (isCarrying(place)) reach_.itemDrag.putDown(isOnMenuBar(at()) ? PutDown::There : PutDown::WhereItWas);
}

void Person::release(MouseButton button, PressedBy by) {
    devices_.pointer.buttons.erase(button);
    if (button == MouseButton::Left) devices_.counts.note(MouseEventType::LeftUp);
    if (joinsPostedPress(button, by)) {
        letGoOfAll(by);
        by = PressedBy::PostedEvents;
    }
    auto& hand = handOf(by);
    if (button == MouseButton::Left) hand.holdsLeftButton = false;
    const auto held = std::exchange(hand.held, {});
    if (button == MouseButton::Left && hand.viewDrag.drop()) return;
    if (const auto* place = std::get_if<HeldPlace>(&held)) return letGo(*place);
    if (reach_.menus.isOpen()) return reach_.menus.releasedAt(at());
    if (const auto* control = std::get_if<HeldControl>(&held))
        letGo(*control);
    else if (const auto* close = std::get_if<HeldCloseButton>(&held))
        letGo(*close);
    else if (const auto* item = std::get_if<HeldItem>(&held))
        letGo(*item, button);
}

void Person::letGo(const HeldControl& held) {
    const auto* surface = reach_.surfaces.find(held.surface);
    if (!surface || reach_.surfaces.at(at()) != surface || controlAt(surface->content, at()) != held.path)
        return;
    const auto* control = viewAt(surface->content, held.path);
    if (control->view.kind.index() == held.kind) perform(*surface, *control);
}

void Person::letGo(const HeldCloseButton& held) {
    const auto* surface = reach_.surfaces.find(held.surface);
    if (surface && surface->closeButton().contains(at())) reach_.surfaces.dismiss(held.surface);
}

void Person::letGo(const HeldItem& held, MouseButton button) {
    const auto* item = reach_.arrangement.itemAt(at());
    const bool isOnItem = item && item->identifier == held.item;
    if (!isOnItem && !held.isBlindClick) return;
    if (isOnItem) reach_.items.notePress(held.item, at());
    reach_.items.press(held.item, held.withControl ? MouseButton::Right : button);
}

bool Person::pressKey(std::string_view key, const std::vector<Modifier>& modifiers) {
    return (key == "escape" && person_.viewDrag.cancel()) || typing_.pressKey(key, modifiers);
}

bool Person::scroll(const tavrin::ScrollSample& sample) {
    const double dy = sample.deltaY;
    tell(WatchedEventType::Scroll, sample);
    if (reach_.menus.isOpen()) return reach_.menus.scroll(at(), dy);
    auto* surface = reach_.surfaces.at(at());
    const bool takesInput = surface && !reach_.surfaces.alertBefore(*surface);
    auto* scrolled = takesInput ? scrollAt(surface->content, at()) : nullptr;
    if (scrolled) scrollTo(*scrolled, scrolled->scrollOffset - dy);
    return scrolled != nullptr;
}

} // namespace mac_model
