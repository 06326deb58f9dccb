#include "app/app_delegate.h"
#include "desktop/desktop_loader.h"
#include "driver/modelled_mac.h"
#include "main_tour.h"
#include "serve/serve.h"
#include "terminal/sessions.h"
#include "terminal/simulator_options.h"

#include <expected>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;
using namespace mac_model;

constexpr int failure = 1;
constexpr int usageError = 2;

int complain(const std::string& sentence, int status) {
    std::cerr << "tavrin-simulator: " << sentence << "\n";
    return status;
}

ProgramInfo tavrinInfo() { return {"org.tavrin.Tavrin", "Tavrin", "Version " TAVRIN_VERSION}; }

int drive(ModelledMac& mac, Mode mode) {
    switch (mode) {
    case Mode::Stdio:
        serveLines(mac.driver(), std::cin, std::cout);
        return 0;
    case Mode::Prompt:
        servePrompt(mac.driver(), std::cin, std::cout);
        return 0;
    case Mode::Serve:
    case Mode::Tour:
        break;
    }
    return failure;
}

std::expected<std::unique_ptr<ModelledMac>, std::string> start(const SimulatorOptions& options,
                                                               DesktopFile desktop) {
    MacOptions mac;
    mac.desktop = std::move(desktop);
    mac.profile = options.profile;
    mac.seed = options.seed;
    mac.program = tavrinInfo();
    return ModelledMac::start(std::move(mac),
                              [](tavrin::Platform& platform) { return tavrin::makeAppDelegate(platform); });
}

int showPage(const SimulatorOptions& options, DesktopFile desktop) {
    const auto name = options.desktop.stem().string();
    std::vector<DesktopChoice> choices{{name, std::move(desktop)}};
    for (auto& builtIn : builtInChoices())
        if (builtIn.name != name) choices.push_back(std::move(builtIn));
    const auto startMac = [&options](DesktopFile chosen) { return start(options, std::move(chosen)); };
    return serve({.port = options.port, .desktops = std::move(choices), .start = startMac}, std::cout,
                 std::cerr);
}

/// Always on a fresh profile and a Mac that doesn't trust the program yet.
int playTour(const SimulatorOptions& options, DesktopFile desktop) {
    desktop.accessibilityTrusted = false;
    desktop.listedInAccessibility = false;
    const auto boot = [&](const fs::path& profile) {
        auto fresh = options;
        fresh.profile = profile;
        return start(fresh, desktop);
    };
    return playTavrinTour(boot, tavrinInfo().bundleIdentifier, std::cout) ? 0 : failure;
}

int run(SimulatorOptions options) {
    auto desktop = loadDesktopFile(options.desktop);
    if (!desktop) return complain(desktop.error(), failure);
    if (options.mode == Mode::Serve) return showPage(options, std::move(*desktop));
    if (options.mode == Mode::Tour) return playTour(options, std::move(*desktop));
    const auto modelled = start(options, std::move(*desktop));
    if (!modelled) return complain(modelled.error(), failure);
    return drive(**modelled, options.mode);
}

} // namespace

int main(int count, char** arguments) {
    const std::vector<std::string_view> given(arguments + 1, arguments + count);
    const auto options = parseSimulatorOptions(given, TAVRIN_DESKTOPS_DIR);
    if (!options) return complain(options.error() + "; " + std::string(simulatorUsage), usageError);
    return run(*options);
}
