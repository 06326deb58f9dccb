// The self-check on a Mac: `tavrin-seam-check` in the bundle of Tavrin.

#include "concurrency/job.h"
#include "platform/macos/mac_platform.h"
#include "platform/macos/presentation/main_menu.h"
#include "platform/macos/support/apple.h"
#include "seam_check/options.h"
#include "seam_check/report.h"

#include <cstdlib>
#include <iostream>
#include <string_view>

namespace {

#if defined(__arm64__)
constexpr std::string_view architecture = "arm64";
#else
constexpr std::string_view architecture = "x86_64";
#endif

constexpr int wrongUsage = 2;

/// Each check has taken back what it made, so that the process may end here.
tavrin::Task<> checkAndExit(tavrin::Platform platform, tavrin::seam_check::Scope scope) {
    std::exit(co_await tavrin::seam_check::selfCheck(platform, scope, architecture, &std::cout));
}

void run(tavrin::seam_check::Scope scope) {
    NSApplication* application = NSApplication.sharedApplication;
    application.mainMenu = tavrin::macos::makeMainMenu(); // else nobody tells the height of the menu bar
    [application setActivationPolicy:NSApplicationActivationPolicyAccessory];
    tavrin::macos::MacPlatform mac;
    const auto platform = mac.platform();
    const auto job = tavrin::start(platform.scheduler, checkAndExit(platform, scope));
    [application run];
}

} // namespace

int main(int argc, char** argv) {
    @autoreleasepool {
        const auto options = tavrin::seam_check::parseOptions({argv + 1, argv + argc});
        if (!options) {
            std::cerr << options.error() << '\n';
            return wrongUsage;
        }
        if (options->wantsHelp) {
            std::cout << tavrin::seam_check::helpText();
            return EXIT_SUCCESS;
        }
        run(options->scope);
        return EXIT_FAILURE; // something has ended the run loop before its time
    }
}
