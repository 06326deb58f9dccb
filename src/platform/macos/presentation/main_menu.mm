#include "platform/macos/presentation/main_menu.h"

#include "platform/macos/support/main_thread.h"

#include <initializer_list>

namespace tavrin::macos {

namespace {

struct Command {
    NSString* title;
    SEL action;    // goes to the object that has the keyboard
    NSString* key; // with Command; a capital with Shift, too
};

NSMenuItem* submenu(NSString* title, std::initializer_list<Command> commands) {
    NSMenu* menu = [[NSMenu alloc] initWithTitle:title];
    for (const auto& command : commands)
        [menu addItem:[[NSMenuItem alloc] initWithTitle:command.title
                                                 action:command.action
                                          keyEquivalent:command.key]];
    NSMenuItem* item = [[NSMenuItem alloc] initWithTitle:title action:nil keyEquivalent:@""];
    item.submenu = menu;
    return item;
}

} // namespace

NSMenu* makeMainMenu() {
    assertMainThread();
    NSMenu* menu = [[NSMenu alloc] initWithTitle:@""];
    [menu addItem:submenu(@"Tavrin", {{@"Settings…", @selector(showSettings:), @","},
                                      {@"Quit Tavrin", @selector(terminate:), @"q"}})];
    [menu addItem:submenu(@"Edit", {{@"Undo", @selector(undo:), @"z"},
                                    {@"Redo", @selector(redo:), @"Z"},
                                    {@"Cut", @selector(cut:), @"x"},
                                    {@"Copy", @selector(copy:), @"c"},
                                    {@"Paste", @selector(paste:), @"v"},
                                    {@"Select All", @selector(selectAll:), @"a"}})];
    [menu addItem:submenu(@"Window", {{@"Close", @selector(performClose:), @"w"}})];
    return menu;
}

} // namespace tavrin::macos
