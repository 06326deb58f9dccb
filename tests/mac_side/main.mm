#include "platform/macos/presentation/main_menu.h"

#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    @autoreleasepool {
        NSApplication* application = NSApplication.sharedApplication;
        application.mainMenu = tavrin::macos::makeMainMenu();
        [application finishLaunching];
        return RUN_ALL_TESTS();
    }
}
