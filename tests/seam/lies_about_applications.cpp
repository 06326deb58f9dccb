#include "seam/lies_about_applications.h"

#include <algorithm>
#include <map>

namespace mac_model {
namespace {

using namespace tavrin;

struct ListsBackwards : PassedOnWorkspace {
    using PassedOnWorkspace::PassedOnWorkspace;

    std::vector<RunningApplication> runningApplications() const override {
        auto all = truth.runningApplications();
        for (auto& application : all) application.isRegular = false;
        const auto latest = all.back();
        if (++readings_ % 2 == 1) std::ranges::reverse(all);
        all.push_back(latest);
        return all;
    }

    OperatingSystemVersion operatingSystemVersion() const override { return {10, 15}; }

    std::optional<ProcessIdentifier> menuBarOwner() const override { return 999'999; }

    std::optional<std::string> bundleIdentifierAt(std::string_view) const override {
        return "com.apple.finder";
    }

    std::optional<std::vector<std::byte>> iconPngOfProcess(ProcessIdentifier) const override {
        return std::nullopt;
    }

  private:
    mutable int readings_ = 0;
};

struct MixesUpAnswers : PassedOnAccessibility {
    using PassedOnAccessibility::PassedOnAccessibility;

    AccessibilityElement application(ProcessIdentifier process) override {
        return known.try_emplace(process, truth.application(process)).first->second; // one time-out for all
    }

    AttributeResult attribute(const AccessibilityElement& element, std::string_view name) override {
        auto answer = truth.attribute(element, name);
        if (!answer) return AttributeValue{};
        if (const auto* flag = std::get_if<bool>(&*answer)) return *flag ? 1.0 : 0.0;
        if (const auto* place = std::get_if<Point>(&*answer)) return Point{place->x, screenHeight - place->y};
        return answer;
    }

    std::expected<std::vector<AttributeResult>, AccessibilityError>
    attributes(const AccessibilityElement& element, std::span<const std::string_view> names) override {
        auto results = truth.attributes(element, names);
        if (results) std::ranges::reverse(*results);
        return results;
    }

    std::expected<void, AccessibilityError> perform(const AccessibilityElement&, std::string_view) override {
        return {};
    }

    std::map<ProcessIdentifier, AccessibilityElement> known;
};

struct ForgetsRegistrations : PassedOnLoginItem {
    using PassedOnLoginItem::PassedOnLoginItem;

    LoginItemState state() const override {
        return ++asked % 2 == 0 ? LoginItemState::NotFound : LoginItemState::NotRegistered;
    }

    std::expected<void, std::string> registerApplication() override { return {}; }

    mutable int asked = 0;
};

struct KeepsRegistrations : PassedOnLoginItem {
    using PassedOnLoginItem::PassedOnLoginItem;

    std::expected<void, std::string> unregisterApplication() override { return {}; }
};

struct RefusesWithoutAWord : PassedOnLoginItem {
    using PassedOnLoginItem::PassedOnLoginItem;

    std::expected<void, std::string> registerApplication() override { return std::unexpected(""); }
};

struct ChangesItsMind : PassedOnAccessibility {
    using PassedOnAccessibility::PassedOnAccessibility;

    bool isTrusted() const override { return ++asked % 2 == 0; }

    mutable int asked = 0;
};

struct DeniesTrust : PassedOnAccessibility {
    using PassedOnAccessibility::PassedOnAccessibility;

    bool isTrusted() const override { return false; }
};

struct NamesTheWrongProcess : PassedOnAccessibility {
    using PassedOnAccessibility::PassedOnAccessibility;

    std::optional<ProcessIdentifier> processOf(const AccessibilityElement&) const override { return 1; }
};

struct KnowsOneProcess : PassedOnAccessibility {
    using PassedOnAccessibility::PassedOnAccessibility;

    AccessibilityElement application(ProcessIdentifier process) override {
        if (!known) known = truth.application(process);
        return *known;
    }

    std::optional<AccessibilityElement> known;
};

struct Misnamed : PassedOnApplication {
    using PassedOnApplication::PassedOnApplication;

    ProcessIdentifier processIdentifier() const override { return ++asked; }

    std::string bundleIdentifier() const override { return "Tavrin of somebody"; }

    std::string displayVersion() const override { return "new"; }

    mutable ProcessIdentifier asked = 0;
};

struct TellsOfActivationTwice : PassedOnApplication {
    using PassedOnApplication::PassedOnApplication;

    Subscription onDidBecomeActive(std::function<void()> handler) override {
        return truth.onDidBecomeActive([handler = std::move(handler)] { handler(), handler(); });
    }

    bool takesKeys() const override { return true; }
};

struct NeverActive : PassedOnApplication {
    using PassedOnApplication::PassedOnApplication;

    bool isActive() const override { return false; }
};

} // namespace

std::vector<PlantedLie> liesAboutApplications() {
    constexpr std::string_view takenBack = "The program is registered to start at login, and taken back.";
    return {
        lie<ListsBackwards>(
            "listsBackwards", "workspace",
            {"The version of macOS is known.",
             "The running applications contain this process once, with its bundle identifier.",
             "The Finder is listed as a regular application.", "No process is listed twice.",
             "Applications that stay keep their order in the list.",
             "A path leads to its bundle's identifier, and to none without a bundle, on any thread.",
             "The menus in the menu bar belong to a running application.",
             "Icons are pictures of 32 × 32 pixels, and who isn't there has none."}),
        lie<MixesUpAnswers>("mixesUpAnswers", "accessibility",
                            {"The program reads itself, and values keep their types.",
                             "An attribute that an element lacks is unsupported or without a value.",
                             "Several attributes in one message come in order, each with its own error.",
                             "An action that an element lacks is an error and not among its names.",
                             "A process that doesn't exist gives an error in time.",
                             "A messaging time-out bounds its own reference alone.",
                             "Positions of items in the menu bar are counted from the top left."}),
        lie<ChangesItsMind>("changesItsMind", "accessibility",
                            {"Whether Accessibility is allowed is told at once."}),
        lie<KnowsOneProcess>("knowsOneProcess", "accessibility",
                             {"References to one element are equal and hash equally; to two they differ."}),
        lie<NamesTheWrongProcess>("namesTheWrongProcess", "accessibility",
                                  {"An element tells which process answers for it."}),
        lie<DeniesTrust>("deniesTrust", "accessibility",
                         {"Other processes answer when Accessibility is allowed, and only then."}),
        lie<ForgetsRegistrations>("forgetsRegistrations", "login item",
                                  {"Asking whether the program starts at login changes nothing.", takenBack}),
        lie<KeepsRegistrations>("keepsRegistrations", "login item", {takenBack}),
        lie<RefusesWithoutAWord>("refusesWithoutAWord", "login item", {takenBack}),
        lie<Misnamed>("misnamed", "application",
                      {"The program knows its process, its bundle identifier and its version."}),
        lie<TellsOfActivationTwice>(
            "tellsOfActivationTwice", "application",
            {"Who subscribed hears once that the program has become active.",
             "The program has the keys while it is active and a window of it is open."}),
        lie<NeverActive>("neverActive", "by hand",
                         {"A click on an item reaches its action, and the program may become active then."}),
    };
}

} // namespace mac_model
