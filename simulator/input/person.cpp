#include "input/person.h"

#include "screen/keyboard_focus.h"
#include "screen/placement.h"
#include "screen/surface_keys.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace mac_model {

namespace {

bool hasCommand(const std::vector<Modifier>& modifiers) {
    return std::ranges::find(modifiers, Modifier::Command) != modifiers.end();
}

} // namespace

void Person::moveTo(tavrin::Point point) {
    const bool isDrag = content_.pointer.buttons.contains(MouseButton::Left);
    mac_.eventServer().count(isDrag ? tavrin::MouseEventType::LeftDragged : tavrin::MouseEventType::Moved);
    const auto before = std::exchange(content_.pointer.at, point);
    viewDrag_.pointerMoved();
    if (viewDrag_.isUnderway()) {
        held_ = {};
        return;
    }
    if (content_.menus.isOpen()) {
        const auto title = content_.applicationMenus.titleAt(point);
        const auto openTitle = content_.menus.anchor()->title;
        if (title && openTitle && title != openTitle) content_.applicationMenus.toggle(*title, point);
        return content_.menus.pointerMovedTo(point);
    }
    if (const auto* held = std::get_if<HeldTitleBar>(&held_))
        if (auto* surface = content_.stack.find(held->surface))
            SurfaceStack::moveBy(*surface, point.x - before.x, point.y - before.y);
    if (auto* place = std::get_if<HeldPlace>(&held_)) carry(*place);
}

void Person::press(MouseButton button, const std::vector<Modifier>& modifiers) {
    content_.pointer.buttons.insert(button);
    if (button == MouseButton::Left) mac_.eventServer().count(tavrin::MouseEventType::LeftDown);
    letGoOfAll();
    if (content_.menus.isOpen() && pressWithOpenMenu() == MenuPress::Taken) return;
    const auto closed = content_.stack.dismissForPressAt(at());
    if (auto* surface = content_.stack.at(at())) return pressSurface(*surface, button);
    pressMenuBarOrDesktop(button, modifiers, closed);
}

void Person::letGoOfAll() {
    const auto* place = std::get_if<HeldPlace>(&held_);
    if (place && isCarrying(*place)) mac_.statusArea().putDown(PutDown::WhereItWas);
    held_ = {};
    viewDrag_.cancel();
}

/// A press outside a menu closes it and does no more, unless it falls on something else in the menu bar.
Person::MenuPress Person::pressWithOpenMenu() {
    if (content_.menus.contains(at())) return MenuPress::Taken;
    const auto anchor = content_.menus.anchor();
    const auto title = content_.applicationMenus.titleAt(at());
    const auto* item = title ? nullptr : mac_.statusArea().itemAt(at());
    content_.menus.close();
    const bool isOnAnchor = item ? anchor->item == item->identifier : title && anchor->title == title;
    return (item || title) && !isOnAnchor ? MenuPress::GoesOn : MenuPress::Taken;
}

void Person::pressSurface(Surface& surface, MouseButton button) {
    if (button == MouseButton::Right) return openContextMenu(surface);
    const auto identifier = surface.identifier;
    const bool isOnTitleBar = surface.hasTitleBar && !surface.contentFrame().contains(at());
    if (isOnTitleBar && surface.closeButton().contains(at()))
        held_ = HeldCloseButton{identifier};
    else if (isOnTitleBar)
        held_ = HeldTitleBar{identifier};
    else if (const auto path = controlAt(surface.content, at()))
        held_ = HeldControl{identifier, *path, viewAt(surface.content, *path)->view.kind};
    if (!isOnTitleBar) {
        focusAt(surface, at());
        viewDrag_.begin(surface);
    }
    if (surface.kind == SurfaceKind::Window) content_.stack.raise(identifier);
    content_.stack.makeKey(identifier);
    if (surface.kind != SurfaceKind::Panel) mac_.processes().activate(surface.owner);
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
    content_.menus.open(std::move(request));
}

void Person::pressMenuBarOrDesktop(MouseButton button, const std::vector<Modifier>& modifiers,
                                   const std::vector<StatusItemIdentifier>& closed) {
    // Menus win over the status items that reach so far left.
    if (const auto title = content_.applicationMenus.titleAt(at())) {
        if (button == MouseButton::Left) content_.applicationMenus.toggle(*title, at());
        return;
    }
    if (const auto* item = mac_.statusArea().itemAt(at())) return pressItem(*item, modifiers, closed);
    const auto finder = mac_.processes().withBundle("com.apple.finder");
    if (!isOnMenuBar(at()) && !finder.empty()) mac_.processes().activate(finder.front());
}

void Person::pressItem(const StatusItemRecord& item, const std::vector<Modifier>& modifiers,
                       const std::vector<StatusItemIdentifier>& closed) {
    // With Command the press belongs to macOS, which lets the person move the item.
    if (hasCommand(modifiers)) {
        held_ = HeldPlace{item.identifier, at(), onPrimary(at()).x - item.frame->x};
        return;
    }
    if (item.origin == ItemOrigin::Program) {
        held_ = HeldItem{item.identifier};
        return;
    }
    const bool hasJustClosed = std::ranges::find(closed, item.identifier) != closed.end();
    if (!hasJustClosed) content_.statusItems.toggle(item.identifier);
}

bool Person::isOnMenuBar(tavrin::Point point) const {
    return std::ranges::any_of(mac_.screens().screens(), [&](const ScreenSpec& screen) {
        return screen.frame.contains(point) && point.y < screen.frame.y + screen.menuBarHeight;
    });
}

/// The same place of the menu bar on the primary screen: as far from the right edge.
tavrin::Point Person::onPrimary(tavrin::Point point) const {
    const auto& screens = mac_.screens().screens();
    const auto screen = screenFor(screens, point);
    const auto* primary = mac_.screens().primary();
    return {(primary ? primary->frame.maxX() : 0) - (screen.frame.maxX() - point.x), point.y};
}

void Person::carry(HeldPlace& place) {
    constexpr double threshold = 4; // points
    const bool hasMoved = std::hypot(at().x - place.pressedAt.x, at().y - place.pressedAt.y) > threshold;
    if (!place.isCarried && hasMoved) {
        place.isCarried = mac_.statusArea().pickUp(place.item);
        if (!place.isCarried) held_ = {};
    }
    if (std::holds_alternative<HeldPlace>(held_) && isCarrying(place))
        mac_.statusArea().carryTo(onPrimary(at()).x - place.offset);
}

/// Its owner may have ended, and macOS puts it down when the displays change.
bool Person::isCarrying(const HeldPlace& place) const {
    const auto* item = mac_.statusArea().find(place.item);
    return place.isCarried && item && item->isCarried;
}

void Person::letGo(const HeldPlace& place) {
    if (isCarrying(place))
        mac_.statusArea().putDown(isOnMenuBar(at()) ? PutDown::There : PutDown::WhereItWas);
}

void Person::release(MouseButton button) {
    content_.pointer.buttons.erase(button);
    if (button == MouseButton::Left) mac_.eventServer().count(tavrin::MouseEventType::LeftUp);
    const auto held = std::exchange(held_, {});
    if (button == MouseButton::Left && viewDrag_.drop()) return;
    if (content_.menus.isOpen()) return content_.menus.releasedAt(at());
    if (const auto* control = std::get_if<HeldControl>(&held))
        letGo(*control);
    else if (const auto* close = std::get_if<HeldCloseButton>(&held))
        letGo(*close);
    else if (const auto* item = std::get_if<HeldItem>(&held))
        letGo(*item, button);
    else if (const auto* place = std::get_if<HeldPlace>(&held))
        letGo(*place);
}

void Person::letGo(const HeldControl& held) {
    const auto* surface = content_.stack.find(held.surface);
    if (!surface || content_.stack.at(at()) != surface || controlAt(surface->content, at()) != held.path)
        return;
    const auto* control = viewAt(surface->content, held.path);
    if (control->view.kind == held.kind) perform(*surface, *control);
}

void Person::letGo(const HeldCloseButton& held) {
    const auto* surface = content_.stack.find(held.surface);
    if (surface && surface->closeButton().contains(at())) content_.stack.dismiss(held.surface);
}

void Person::letGo(const HeldItem& held, MouseButton button) {
    const auto* item = mac_.statusArea().itemAt(at());
    if (item && item->identifier == held.item) mac_.statusArea().press(held.item, button);
}

bool Person::pressKey(std::string_view key, const std::vector<Modifier>& modifiers) {
    if (key == "escape" && viewDrag_.cancel()) return true;
    const auto stroke = mac_.keyboard().strokeOf(key, modifiers);
    if (stroke && mac_.hotKeys().press(*stroke)) return true;
    if (stroke && showToMonitors(key, modifiers, *stroke)) return true;
    return pressKeyInFront(key, modifiers);
}

/// The monitors belong to the program, whose main loop they run in; what they pass on goes its way after
/// that.
bool Person::showToMonitors(std::string_view key, const std::vector<Modifier>& modifiers,
                            const tavrin::KeyPress& stroke) {
    const auto connection = mac_.program().connection();
    const auto* surface = content_.stack.key();
    const bool isForProgram = connection && surface && surface->owner == connection->process();
    if (!isForProgram || content_.menus.isOpen() || !mac_.keyboard().monitors.hasSubscribers()) return false;
    connection->post([this, key = std::string(key), modifiers, stroke] {
        if (mac_.keyboard().showToMonitors(stroke) == tavrin::KeyHandling::PassedOn)
            pressKeyInFront(key, modifiers);
    });
    return true;
}

bool Person::pressKeyInFront(std::string_view key, const std::vector<Modifier>& modifiers) {
    if (content_.menus.isOpen()) return pressKeyInMenu(key, modifiers);
    if (auto* surface = content_.stack.key(); surface && pressKeyOn(*surface, key, modifiers)) return true;
    if (modifiers.empty() && key == "escape") return closeKeySurface(key);
    if (modifiers == std::vector{Modifier::Command} && key == "w" && closeKeySurface(key)) return true;
    return content_.applicationMenus.chooseByKey(key, modifiers);
}

bool Person::pressKeyInMenu(std::string_view key, const std::vector<Modifier>& modifiers) {
    auto& menus = content_.menus;
    if (!modifiers.empty()) return menus.chooseByKey(key, modifiers);
    if (key == "escape")
        menus.close();
    else if (key == "down")
        menus.moveHighlight(1);
    else if (key == "up")
        menus.moveHighlight(-1);
    else if (key == "left")
        menus.closeInnermost();
    else if (key == "right")
        menus.openHighlighted();
    else if (key == "return" || key == "space")
        menus.pickHighlighted();
    else
        return false;
    return true;
}

/// Escape closes what any press outside would close; Command-W what has a close button.
bool Person::closeKeySurface(std::string_view key) {
    const auto* surface = content_.stack.key();
    if (!surface) return false;
    const bool closes =
        key == "escape" ? surface->outsidePress == OutsidePress::Closes : surface->hasTitleBar;
    if (closes) content_.stack.dismiss(surface->identifier);
    return closes;
}

bool Person::scroll(double dy) {
    auto* surface = content_.stack.at(at());
    auto* scrolled =
        surface && surface->kind != SurfaceKind::Menu ? scrollAt(surface->content, at()) : nullptr;
    if (scrolled) scrollTo(*scrolled, scrolled->scrollOffset - dy);
    return scrolled != nullptr;
}

} // namespace mac_model
