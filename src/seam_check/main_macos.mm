// The self-check on a Mac: a bundle of its own in Tavrin's, so that macOS takes it for another application.

#include "concurrency/job.h"
#include "platform/macos/mac_platform.h"
#include "platform/macos/presentation/main_menu.h"
#include "platform/macos/support/apple.h"
#include "platform/macos/support/cf_reference.h"
#include "platform/macos/system/defaults.h"
#include "seam_check/options.h"
#include "seam_check/report.h"

#include <cerrno>
#include <crt_externs.h>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <mach-o/dyld.h>
#include <spawn.h>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <utility>

namespace {

#if defined(__arm64__)
constexpr std::string_view architecture = "arm64";
#else
constexpr std::string_view architecture = "x86_64";
#endif

constexpr int wrongUsage = 2;

std::string ownPath() {
    std::uint32_t size = 0;
    _NSGetExecutablePath(nullptr, &size);
    std::string path(size, '\0');
    return _NSGetExecutablePath(path.data(), &size) == 0 ? std::string(path.c_str()) : std::string();
}

/// Starts this program once more, to look for the text.
bool isFoundByAnother(const std::string& text) {
    auto path = ownPath();
    auto option = std::string(tavrin::seam_check::expectOption);
    auto wanted = text;
    char* arguments[] = {path.data(), option.data(), wanted.data(), nullptr};
    pid_t process = 0;
    if (posix_spawn(&process, path.c_str(), nullptr, nullptr, arguments, *_NSGetEnviron()) != 0) return false;
    int status = 0;
    while (waitpid(process, &status, 0) < 0)
        if (errno != EINTR) return false;
    return WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
}

CGEventFlags flagsOf(tavrin::CarbonModifiers modifiers) {
    CGEventFlags flags = 0;
    if (modifiers & tavrin::carbonCommandKey) flags |= kCGEventFlagMaskCommand;
    if (modifiers & tavrin::carbonShiftKey) flags |= kCGEventFlagMaskShift;
    if (modifiers & tavrin::carbonOptionKey) flags |= kCGEventFlagMaskAlternate;
    if (modifiers & tavrin::carbonControlKey) flags |= kCGEventFlagMaskControl;
    return flags;
}

void pressKey(tavrin::KeyCode key, tavrin::CarbonModifiers modifiers) {
    for (const bool isDown : {true, false}) {
        const auto event = tavrin::macos::CfReference<CGEventRef>::adopting(
            CGEventCreateKeyboardEvent(nullptr, static_cast<CGKeyCode>(key), isDown));
        if (!event) return;
        CGEventSetFlags(event.get(), flagsOf(modifiers));
        CGEventPost(kCGHIDEventTap, event.get());
    }
}

/// Each check has taken back what it made, so that the process may end here.
tavrin::Task<> checkAndExit(tavrin::Platform platform, tavrin::seam_check::Scope scope) {
    tavrin::seam_check::SelfCheckSetup setup{architecture, scope, {isFoundByAnother, pressKey}};
    std::exit(co_await tavrin::seam_check::selfCheck(platform, std::move(setup), &std::cout));
}

bool isKept(const std::string& text) {
    tavrin::macos::MacPlatform mac;
    const auto kept =
        mac.platform().defaults.value({tavrin::seam_check::scratchDomain}, tavrin::seam_check::keptKey);
    return kept == tavrin::DefaultsValue{text};
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
        if (options->expected) return isKept(*options->expected) ? EXIT_SUCCESS : EXIT_FAILURE;
        run(options->scope);
        return EXIT_FAILURE; // something has ended the run loop before its time
    }
}
