#pragma once

#include "driver/modelled_mac.h"

#include <expected>
#include <filesystem>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mac_model {

using nlohmann::json;

inline constexpr const char* tavrinBundle = "org.tavrin.Tavrin";

struct TavrinMacOptions {
    std::string desktop = "notched-laptop";     // one that ships, by its name
    std::string desktopJson{};                  // instead of it, the text of a desktop file
    json changes = json::object();              // a merge patch laid over the desktop file
    std::map<std::string, std::string> model{}; // uncertain settings: name to value
    std::optional<std::filesystem::path> profile{};
    std::uint64_t seed = 0;
    ProgramFactory program{}; // instead of Tavrin
};

/// A modelled Mac with Tavrin launched on it, driven through the protocol. A setting that is refused fails
/// the test by an exception.
class TavrinMac {
  public:
    explicit TavrinMac(TavrinMacOptions = {});

    ModelledMac& modelled() { return *modelled_; }

    Mac& mac() { return modelled_->mac(); }

    Driver& driver() { return modelled_->driver(); }

    /// The reply, whatever it is.
    json command(const json&);
    /// The reply to a command that must be accepted; a refusal is a test failure.
    json done(const json&);
    /// The error of a command that must be refused; accepting it is a test failure.
    std::string refused(const json&);

    json look() { return done({{"do", "look"}}); }

    void press(const std::string& text) { done({{"do", "press"}, {"text", text}}); }

    void clickItem(const std::string& bundle) { done({{"do", "click"}, {"item", bundle}}); }

    void rightClickItem(const std::string& bundle);

    void wait(double seconds) { done({{"do", "wait"}, {"seconds", seconds}}); }

    void settle() { done({{"do", "settle"}}); }

    void key(const std::string& name) { done({{"do", "key"}, {"key", name}}); }

    // Tavrin's life: launched, or reopened while it runs; asked to quit; gone at once.
    void start() { done({{"do", "start"}}); }

    void terminate() { done({{"do", "terminate"}}); }

    void crash() { done({{"do", "crash"}}); }

    /// What was posted and chosen since the last call.
    json events() { return done({{"do", "events"}}); }

    json stats() { return done({{"do", "stats"}}); }

    void set(const std::string& key, json value) { done({{"do", "set"}, {key, std::move(value)}}); }

    /// Everything in the tree of open surfaces whose text is this; empty when there is nothing.
    std::vector<json> find(const std::string& text);

    bool shows(const std::string& text) { return !find(text).empty(); }

    /// The surfaces of a process, from back to front.
    std::vector<json> surfacesOf(const std::string& bundle);

    /// The status items of a bundle as "look" tells of them, from left to right.
    std::vector<json> itemsOf(const std::string& bundle);
    /// Tavrin's control in the menu bar; null without one.
    json control();
    /// The names of all items that are drawn, from left to right.
    std::vector<std::string> drawnItems();

    /// The values stored in Tavrin's domain.
    json defaults() { return done({{"do", "defaults"}})["values"]; }

    /// Through onboarding and the start-up task, with Tavrin trusted.
    void finishOnboarding();

  private:
    std::unique_ptr<ModelledMac> modelled_;
};

/// The text of a desktop file that ships.
std::string shippedDesktop(const std::string& name);
inline const std::vector<std::string> shippedDesktops{"notched-laptop", "classic-display", "two-displays",
                                                      "macos-27", "macos-27-plain"};

} // namespace mac_model
