#pragma once

#include "model/mac.h"
#include "surfaces/screen_content.h"
#include "surfaces/view_queries.h"

#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mac_model {

/// Something on the screen that a person can point at.
struct Target {
    enum class Kind { Control, MenuEntry, Text, StatusItem, MenuTitle };

    Kind kind = Kind::Control;
    std::vector<std::string> names{}; // what a person calls it: text, label, help
    tavrin::Rect frame{};
    bool isEnabled = true;
    SurfaceIdentifier surface{}; // Control, Text
    ViewPath path{};
    StatusItemIdentifier item{}; // StatusItem
};

/// Finds things by what a person calls them: exactly, or else with letter case aside.
class TargetFinder {
  public:
    TargetFinder(Mac& mac, ScreenContent& content) : mac_(mac), content_(content) {}

    /// The one enabled control, or menu entry, or status item or menu title where no surface has any. What
    /// another surface covers doesn't count, and while a menu is open only its entries do. The error is a
    /// sentence.
    std::expected<Target, std::string> control(std::string_view text) const;
    /// The same, or else the one piece of text.
    std::expected<Target, std::string> anything(std::string_view text) const;
    /// The one status item or menu title that has this name, or whose application has it.
    std::expected<Target, std::string> menuOwner(std::string_view name) const;
    /// An enabled entry of that open menu.
    std::expected<Target, std::string> menuEntry(SurfaceIdentifier menu, std::string_view title) const;
    /// An item of the bundle: the n-th from the left, or without a number the first that is drawn.
    std::expected<Target, std::string> statusItem(std::string_view bundle, std::optional<int> index) const;

    /// Where to press: the middle, after scrolling it into sight.
    std::expected<tavrin::Point, std::string> placeToPress(const Target&) const;

  private:
    std::vector<Target> onSurfaces() const;
    std::vector<Target> inMenuBar() const;
    std::vector<Target> matching(std::vector<Target>, std::string_view text) const;
    Target targetFor(const StatusItemRecord&) const;
    std::expected<Target, std::string> oneOf(const std::vector<Target>& tiers, std::string_view text) const;
    static void addRows(const Surface&, std::vector<Target>&);
    void addContent(const Surface&, std::vector<Target>&) const;

    Mac& mac_;
    ScreenContent& content_;
};

} // namespace mac_model
