#include "platform/macos/presentation/main_menu.h"

#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

extern "C" {
void* objc_autoreleasePoolPush(void);
void objc_autoreleasePoolPop(void* pool);
}

namespace {

/// What a test has autoreleased goes with it.
class PoolOfTest : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override { pool_ = objc_autoreleasePoolPush(); }

    void OnTestEnd(const testing::TestInfo&) override { objc_autoreleasePoolPop(pool_); }

    void* pool_ = nullptr;
};

} // namespace

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    testing::UnitTest::GetInstance()->listeners().Append(new PoolOfTest);
    @autoreleasepool {
        [NSClassFromString(@"TavrinWorkspace") sharedWorkspace]; // ours, before GNUstep makes its own
        NSApplication* application = [NSClassFromString(@"TavrinApplication") sharedApplication];
        application.mainMenu = tavrin::macos::makeMainMenu();
        [application finishLaunching];
        return RUN_ALL_TESTS();
    }
}
