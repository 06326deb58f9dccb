#include "support/tavrin_mac.h"

#include "app/app_delegate.h"
#include "desktop/desktop_loader.h"
#include "support/program_platform.h"

#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace mac_model {

namespace {

json patchedDesktop(const TavrinMacOptions& options) {
    auto desktop =
        json::parse(options.desktopJson.empty() ? shippedDesktop(options.desktop) : options.desktopJson);
    desktop.merge_patch(options.changes);
    // Places come at once unless a test asks for the delay, which would only make the others longer.
    desktop["model"]["placement"] = "prompt";
    for (const auto& [name, value] : options.model) desktop["model"][name] = value;
    return desktop;
}

DesktopFile desktopOf(const TavrinMacOptions& options) {
    auto desktop = parseDesktopFile(patchedDesktop(options).dump(), "test.json");
    if (!desktop) throw std::invalid_argument(desktop.error());
    return std::move(*desktop);
}

std::unique_ptr<tavrin::ApplicationDelegate> makeTavrin(tavrin::Platform& platform) {
    return tavrin::makeAppDelegate(platform);
}

void collect(const json& node, const std::string& text, std::vector<json>& found) {
    if (node.value("text", "") == text) found.push_back(node);
    if (!node.contains("children")) return;
    for (const auto& child : node["children"]) collect(child, text, found);
}

} // namespace

TavrinMac::TavrinMac(TavrinMacOptions options) {
    MacOptions mac;
    mac.desktop = desktopOf(options);
    mac.profile = options.profile;
    mac.seed = options.seed;
    mac.program = {tavrinBundle, "Tavrin", "Version 1.2 (34)"};
    auto program = options.program ? std::move(options.program) : ProgramFactory(makeTavrin);
    auto modelled = ModelledMac::start(std::move(mac), onPlatformOfTests(std::move(program)));
    if (!modelled) throw std::invalid_argument(modelled.error());
    modelled_ = std::move(*modelled);
}

json TavrinMac::command(const json& given) { return modelled_->driver().command(given); }

json TavrinMac::done(const json& given) {
    auto reply = command(given);
    EXPECT_TRUE(reply.value("ok", false)) << given << "\n" << reply;
    return reply;
}

std::string TavrinMac::refused(const json& given) {
    const auto reply = command(given);
    EXPECT_FALSE(reply.value("ok", true)) << given << "\n" << reply;
    return reply.value("error", "");
}

void TavrinMac::rightClickItem(const std::string& bundle) {
    done({{"do", "click"}, {"item", bundle}, {"button", "right"}});
}

std::vector<json> TavrinMac::find(const std::string& text) {
    std::vector<json> found;
    for (const auto& surface : look()["surfaces"]) collect(surface, text, found);
    return found;
}

std::vector<json> TavrinMac::surfacesOf(const std::string& bundle) {
    std::vector<json> surfaces;
    for (const auto& surface : look()["surfaces"])
        if (surface["owner"] == bundle) surfaces.push_back(surface);
    return surfaces;
}

std::vector<json> TavrinMac::itemsOf(const std::string& bundle) {
    std::vector<json> items;
    for (const auto& item : look()["menuBar"])
        if (item["owner"] == bundle) items.push_back(item);
    return items;
}

json TavrinMac::control() {
    for (const auto& item : itemsOf(tavrinBundle))
        if (item.value("symbol", "").starts_with("chevron.")) return item;
    return nullptr;
}

std::vector<std::string> TavrinMac::drawnItems() {
    std::vector<std::string> names;
    for (const auto& item : look()["menuBar"])
        if (item["drawn"]) names.push_back(item["name"]);
    return names;
}

void TavrinMac::finishOnboarding() {
    set("trusted", true);
    wait(5);
}

std::string shippedDesktop(const std::string& name) {
    std::ifstream file(std::filesystem::path(TAVRIN_SOURCE_DIR) / "simulator/desktops" / (name + ".json"));
    if (!file) throw std::invalid_argument("there is no desktop " + name);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

} // namespace mac_model
