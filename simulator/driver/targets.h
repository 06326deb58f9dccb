#pragma once

#include "mac/mac.h"
#include "mac/screen_content.h"
#include "views/view_queries.h"
#include "vocabulary/vocabulary.h"

#include <expected>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mac_model {

/// Something on the screen that a person can point at.
struct Target {
    enum class Kind { Control, MenuEntry, Text, View, StatusItem, MenuTitle };

    Kind kind = Kind::Control;
    std::vector<std::string> names{}; // what a person calls it: text, label, help
    Rect frame{};
    bool isEnabled = true;
    SurfaceIdentifier surface{}; // Control, MenuEntry, Text, View
    ViewPath path{};
    std::size_t row = 0;         // MenuEntry
    StatusItemIdentifier item{}; // StatusItem
};

void addName(Target&, const std::string& name);

/// Finds things by a person's names for them: exactly, or else without regard to letter case.
class TargetFinder {
  public:
    TargetFinder(Mac& mac, ScreenContent& content) : mac_(mac), content_(content) {}

    /// The one enabled control, or menu entry, or status item or menu title where no surface has any. Things
    /// that another surface covers, or that an alert of their application keeps from being pressed, don't
    /// count, and while a menu is open only its entries do. The error is a sentence.
    std::expected<Target, std::string> control(std::string_view text) const;
    /// The same, or else the one piece of text.
    std::expected<Target, std::string> anything(std::string_view text) const;
    /// The one status item or menu title that has this name, or whose application has it; or else the one
    /// view of that name with a context menu.
    std::expected<Target, std::string> menuOwner(std::string_view name) const;
    /// An enabled entry of that open menu.
    std::expected<Target, std::string> menuEntry(SurfaceIdentifier menu, std::string_view title) const;
    /// An item of the bundle: the n-th from the left, or without a number the first that is drawn.
    std::expected<Target, std::string> statusItem(std::string_view bundle, std::optional<int> index) const;

    /// The one view of this name with a context menu.
    std::expected<Target, std::string> withContextMenu(std::string_view name) const;
    /// The one view of this name that has this Accessibility action, which `actionOf` gives.
    std::expected<Target, std::string> withAction(std::string_view name, std::string_view action) const;
    /// What the action does, for the view's process to run; null when the view has no action of that name.
    Work actionOf(const Target&, std::string_view action) const;
    /// The one view of this name that can be dragged.
    std::expected<Target, std::string> draggable(std::string_view name) const;
    /// Where drops are taken: the one text in such a view, or the one such view, of this name.
    std::expected<Target, std::string> dropTarget(std::string_view name) const;

    bool isOnScreen(Point) const;
    /// Where to press: the middle, after scrolling it into sight. Nothing is scrolled when it can't be
    /// pressed.
    std::expected<Point, std::string> placeToPress(const Target&) const;
    /// Where a press drags the view and nothing else; it is scrolled into sight.
    std::expected<Point, std::string> placeToDrag(const Target&) const;

    /// Where a drop meets the target. While it is scrolled away, a place at the edge of the Scroll that
    /// brings it nearer.
    struct DropPlace {
        Point point;
        bool isInSight = true;
    };

    std::expected<DropPlace, std::string> placeToDrop(const Target&) const;

  private:
    std::vector<Target> onSurfaces() const;
    std::vector<Target> inMenuBar() const;
    std::vector<Target> matching(std::vector<Target>, std::string_view text) const;
    Target targetFor(const StatusItemRecord&) const;
    std::expected<Target, std::string> oneOf(const std::vector<Target>& tiers, std::string_view text) const;
    std::vector<Target> views(const std::function<bool(const View&)>& matches) const;
    std::vector<Target> dropTargets() const;
    bool isCovered(const Surface&, Rect frame) const;
    bool isReachable(const Surface&, const LaidOutView&, const ViewPath&) const;
    static void addRows(const Surface&, std::vector<Target>&);
    void addContent(const Surface&, std::vector<Target>&) const;

    Mac& mac_;
    ScreenContent& content_;
};

} // namespace mac_model
