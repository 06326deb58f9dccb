#include "platform/macos/views/view_accessibility.h"

#include "platform/macos/support/conversions.h"
#include "platform/macos/support/menu.h"
#include "platform/macos/views/view_press.h"

#include <string>
#include <utility>
#include <variant>

using tavrin::View;

namespace kinds = tavrin::kinds;

namespace {

NSString* orNil(const std::string& text) { return text.empty() ? nil : tavrin::macos::localized(text); }

/// A button that shows only a symbol is known by what its help says.
NSString* labelFor(const View& view) {
    if (!view.accessibilityLabel.empty()) return tavrin::macos::localized(view.accessibilityLabel);
    const auto* button = std::get_if<kinds::Button>(&view.kind);
    return button && button->title.empty() ? orNil(view.help) : nil;
}

/// Whether a node without a control is a thing of its own, and not only the place of its children.
bool isElement(const View& view) {
    return !view.accessibilityLabel.empty() || !view.contextMenu.empty() || view.isFocusable || view.onPress;
}

tavrin::Menu menuOf(const View& view) {
    tavrin::Menu menu;
    for (const auto& action : view.contextMenu) {
        tavrin::MenuItem item;
        item.title = action.name;
        item.action = action.perform;
        menu.items.push_back(std::move(item));
    }
    return menu;
}

NSArray<NSAccessibilityCustomAction*>* namedActions(TavrinViewNode* node) {
    NSMutableArray<NSAccessibilityCustomAction*>* actions = [NSMutableArray array];
    __weak TavrinViewNode* weakNode = node;
    for (const auto& action : [node shownView].contextMenu) {
        const auto perform = action.perform;
        BOOL (^handler)(void) = ^BOOL {
            TavrinViewNode* present = weakNode;
            [present deliverWork:perform];
            return present != nil;
        };
        [actions
            addObject:[[NSAccessibilityCustomAction alloc] initWithName:tavrin::macos::localized(action.name)
                                                                handler:handler]];
    }
    return actions;
}

NSMenu* contextMenu(TavrinViewNode* node) {
    if ([node shownView].contextMenu.empty()) return nil;
    __weak TavrinViewNode* weakNode = node;
    return tavrin::macos::makeMenu(menuOf([node shownView]),
                                   [weakNode](tavrin::Work work) { [weakNode deliverWork:std::move(work)]; });
}

/// The object that assistive technology meets: the control, or the node where it has none of its own.
NSView* elementOf(TavrinViewNode* node) {
    return node.innerControl && !tavrin::is<kinds::Scroll>([node shownView]) ? node.innerControl : node;
}

/// A picture without a label only decorates. Assistive technology meets a control's cell, not the control.
void describePicture(NSImageView* picture, BOOL isLabelled) {
    picture.accessibilityElement = isLabelled;
    picture.cell.accessibilityElement = isLabelled;
}

} // namespace

void tavrin::macos::describe(TavrinViewNode* node) {
    const View& view = [node shownView];
    node.menu = contextMenu(node);
    NSView* element = elementOf(node);
    element.accessibilityLabel = labelFor(view);
    element.accessibilityHelp = orNil(view.help);
    element.accessibilityCustomActions = namedActions(node);
    if (element == node) {
        element.accessibilityElement = isElement(view);
        element.accessibilityRole = view.onPress ? NSAccessibilityButtonRole : NSAccessibilityGroupRole;
    }
    if (is<kinds::Symbol>(view) || is<kinds::Icon>(view))
        describePicture(static_cast<NSImageView*>(element), !view.accessibilityLabel.empty());
}

@implementation TavrinViewNode (Accessibility)

- (BOOL)accessibilityPerformPress {
    if (!tavrin::macos::isPressable(self)) return NO;
    [self pressNode];
    return YES;
}

- (BOOL)isAccessibilitySelectorAllowed:(SEL)selector {
    if (selector == @selector(accessibilityPerformPress)) return tavrin::macos::isPressable(self);
    return [super isAccessibilitySelectorAllowed:selector];
}

// A click on anything within the view has its menu as well.
- (NSMenu*)menuForEvent:(NSEvent*)event {
    return self.menu ? self.menu : [self.superview menuForEvent:event];
}

@end
