#include "platform/macos/presentation/presentation.h"

#include "platform/macos/presentation/alert.h"
#include "platform/macos/presentation/panel.h"
#include "platform/macos/presentation/popover.h"
#include "platform/macos/presentation/status_items.h"
#include "platform/macos/presentation/window.h"
#include "platform/macos/support/apple.h"
#include "platform/macos/support/main_thread.h"
#include "platform/macos/support/menu.h"

#include <utility>

namespace tavrin::macos {

namespace {

void track(NSMenu* menu, NSStatusBarButton* button, Rect area) {
    if (!button.window) return;
    const NSRect anchor = rectInButton(button, area);
    // Since macOS 26 the button is lower than the menu bar, which a menu below the button would overlap.
    const NSRect window = [button convertRect:button.window.contentView.bounds
                                     fromView:button.window.contentView];
    const CGFloat bottom = button.flipped ? NSMaxY(window) : NSMinY(window);
    [button highlight:YES];
    [menu popUpMenuPositioningItem:nil atLocation:NSMakePoint(NSMinX(anchor), bottom) inView:button];
    [button highlight:NO];
}

} // namespace

std::unique_ptr<Popover> MacPresentation::makePopover(PopoverBehavior behavior,
                                                      std::function<void()> onClose) {
    return std::make_unique<MacPopover>(scheduler_, behavior, std::move(onClose));
}

std::unique_ptr<Window> MacPresentation::makeWindow(std::string title, std::function<void()> onClose) {
    return std::make_unique<MacWindow>(scheduler_, title, std::move(onClose));
}

std::unique_ptr<Panel> MacPresentation::makePanel() { return std::make_unique<MacPanel>(scheduler_); }

std::unique_ptr<Alert> MacPresentation::showAlert(AlertQuestion question,
                                                  std::function<void(std::size_t)> onAnswer) {
    return std::make_unique<MacAlert>(scheduler_, question, std::move(onAnswer));
}

/// Tracking a menu blocks. It starts from a timer of its own: posted work would hold up all the work that was
/// posted after it until the menu closes.
void MacPresentation::popUp(Menu menu, StatusItem& item, Rect area) {
    assertMainThread();
    NSStatusBarButton* button = buttonOf(item);
    NSMenu* shown = makeMenu(menu, menuGate_.deliver());
    NSTimer* timer = [NSTimer scheduledTimerWithTimeInterval:0
                                                     repeats:NO
                                                       block:^(NSTimer*) {
                                                           track(shown, button, area);
                                                       }];
    // Also while an alert is open, and not while another menu is.
    [NSRunLoop.mainRunLoop addTimer:timer forMode:NSModalPanelRunLoopMode];
}

} // namespace tavrin::macos
