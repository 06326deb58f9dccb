#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>
#include <type_traits>

namespace mac_model {

// Where nobody has settled what real macOS does, or where it does now one thing and now another, the model
// has a setting, so that the program can be tried under each answer. The first enumerator is the likeliest
// one and the default.

/// Where an item goes whose stored preferred position is 0. Positions count from the right edge, so 0 ought
/// to be the rightmost allowed slot; one report saw such an item at the far left.
enum class ZeroPosition { Rightmost, Leftmost };

/// Where the items left of a very long one go (macOS 26 and earlier). Usually the whole run moves off the
/// left edge; on very wide screens it was seen to stop where the application's menus end.
enum class LongItem { Pushes, StopsAtMenus };

/// How calls fail once Accessibility is revoked: at once with "API disabled", or each by its time-out.
enum class RevokedAccess { ApiDisabled, TimesOut };

/// The trust flag's value while the notification of a change of permission is being delivered: the new value,
/// or for 0.8 s still the old one.
enum class PermissionNotice { Prompt, Stale };

/// Which error AXExtrasMenuBar gives for an application without status items: no value, or attribute
/// unsupported.
enum class EmptyExtras { NoValue, Unsupported };

/// Whether the AXMenu of a closed status menu lists its entries, or is empty until the menu opens.
enum class ClosedMenus { Listed, Empty };

/// The position that Accessibility reports for items pushed off the screen: their real, negative x, or x = -1
/// at full width.
enum class OffscreenFrames { True, Clamped };

/// Whether removing an item deletes its stored preferred position (seen from macOS 11 to 26) or keeps it.
enum class Removal { ForgetsPosition, KeepsPosition };

/// What becomes of a plain request of the program to be the active application, since macOS 14: often it is
/// declined, as the program has no icon in the Dock; or granted at once, or 0.5 s later. A request that
/// insists is granted in any case.
enum class Activation { Declined, Granted, Late };

/// When macOS 26 and later give the window of a program's new status item its place: 1.2 s after its
/// creation, at once as all versions before did, or 4 s after it. Until then the program is told a frame
/// without height.
enum class Placement { Slow, Prompt, VerySlow };

/// What becomes of a popover of the program at a status item that isn't drawn: macOS says that it is shown,
/// and no window comes up; or it isn't shown at all.
enum class HiddenAnchor { Claims, Refuses };

/// What becomes of the program's request to bring another application to the front, since macOS 14, while the
/// program isn't active itself: it is declined without a word, or granted.
enum class OthersActivation { Declined, Granted };

// The settings below have a meaning since macOS 27, where one agent draws the status items of all processes.

/// Where the agent's window has the items in its Accessibility tree: right below it; in a group for each
/// owner; or in one group together with an element that stands for all of them.
enum class AgentTree { Flat, Grouped, Proxied };

/// Whose elements those are: each its owner's, who answers for it; or the agent's own, which then know no
/// identifiers but those of the system's extras.
enum class AgentOwners { Owner, Agent };

/// Where those elements have what an item says of itself: nowhere, as title, or as description.
enum class AgentLabels { None, Title, Description };

/// The frame that Accessibility reports for an item that the agent doesn't draw: an empty one, one left of
/// the screen, or the one that the item had when it was drawn last. In the last case the agent's tree hasn't
/// the item.
enum class OverflowFrame { Zero, Parked, Stale };

/// Whether positions that a program stores for its items before it makes them count for the agent.
enum class HostedPositions { Ignored, Seeded };

/// What becomes of a posted Command-drag of an item: the owner gets a click, or the item moves.
enum class HostedDrags { Click, Work };

struct Uncertainties {
    ZeroPosition zeroPosition = ZeroPosition::Rightmost;
    LongItem longItem = LongItem::Pushes;
    RevokedAccess revokedAccess = RevokedAccess::ApiDisabled;
    PermissionNotice permissionNotice = PermissionNotice::Prompt;
    EmptyExtras emptyExtras = EmptyExtras::NoValue;
    ClosedMenus closedMenus = ClosedMenus::Listed;
    OffscreenFrames offscreenFrames = OffscreenFrames::True;
    Removal removal = Removal::ForgetsPosition;
    Activation activation = Activation::Declined;
    Placement placement = Placement::Slow;
    HiddenAnchor hiddenAnchor = HiddenAnchor::Claims;
    OthersActivation othersActivation = OthersActivation::Declined;
    AgentTree agentTree = AgentTree::Flat;
    AgentOwners agentOwners = AgentOwners::Owner;
    AgentLabels agentLabels = AgentLabels::None;
    OverflowFrame overflowFrame = OverflowFrame::Zero;
    HostedPositions hostedPositions = HostedPositions::Ignored;
    HostedDrags hostedDrags = HostedDrags::Click;

    bool operator==(const Uncertainties&) const = default;
};

/// One row of `uncertaintySettings`: a setting by its name in desktop files and in the driving protocol.
struct UncertaintySetting {
    std::string_view name;
    std::span<const std::string_view> values; ///< the default first
    void (*choose)(Uncertainties&, std::size_t value);
    std::size_t (*chosen)(const Uncertainties&);

    std::string_view valueIn(const Uncertainties& model) const { return values[chosen(model)]; }

    /// False, and nothing changed, when the setting has no such value.
    [[nodiscard]] bool set(Uncertainties& model, std::string_view value) const {
        for (std::size_t i = 0; i < values.size(); ++i)
            if (values[i] == value) return choose(model, i), true;
        return false;
    }
};

namespace detail {

template <auto Field>
constexpr UncertaintySetting settingOf(std::string_view name, std::span<const std::string_view> values) {
    return {name, values,
            [](Uncertainties& model, std::size_t value) {
                auto& field = model.*Field;
                field = static_cast<std::remove_reference_t<decltype(field)>>(value);
            },
            [](const Uncertainties& model) { return static_cast<std::size_t>(model.*Field); }};
}

} // namespace detail

namespace detail {

// In the order of the enumerators.
inline constexpr std::string_view zeroPositionNames[]{"rightmost", "leftmost"};
inline constexpr std::string_view longItemNames[]{"pushes", "stopsAtMenus"};
inline constexpr std::string_view revokedAccessNames[]{"apiDisabled", "timesOut"};
inline constexpr std::string_view permissionNoticeNames[]{"prompt", "stale"};
inline constexpr std::string_view emptyExtrasNames[]{"noValue", "unsupported"};
inline constexpr std::string_view closedMenusNames[]{"listed", "empty"};
inline constexpr std::string_view offscreenFramesNames[]{"true", "clamped"};
inline constexpr std::string_view removalNames[]{"forgetsPosition", "keepsPosition"};
inline constexpr std::string_view activationNames[]{"declined", "granted", "late"};
inline constexpr std::string_view placementNames[]{"slow", "prompt", "verySlow"};
inline constexpr std::string_view hiddenAnchorNames[]{"claims", "refuses"};
inline constexpr std::string_view othersActivationNames[]{"declined", "granted"};
inline constexpr std::string_view agentTreeNames[]{"flat", "grouped", "proxied"};
inline constexpr std::string_view agentOwnersNames[]{"owner", "agent"};
inline constexpr std::string_view agentLabelsNames[]{"none", "title", "description"};
inline constexpr std::string_view overflowFrameNames[]{"zero", "parked", "stale"};
inline constexpr std::string_view hostedPositionsNames[]{"ignored", "seeded"};
inline constexpr std::string_view hostedDragsNames[]{"click", "work"};

} // namespace detail

inline constexpr std::array uncertaintySettings{
    detail::settingOf<&Uncertainties::zeroPosition>("zeroPosition", detail::zeroPositionNames),
    detail::settingOf<&Uncertainties::longItem>("longItem", detail::longItemNames),
    detail::settingOf<&Uncertainties::revokedAccess>("revokedAccess", detail::revokedAccessNames),
    detail::settingOf<&Uncertainties::permissionNotice>("permissionNotice", detail::permissionNoticeNames),
    detail::settingOf<&Uncertainties::emptyExtras>("emptyExtras", detail::emptyExtrasNames),
    detail::settingOf<&Uncertainties::closedMenus>("closedMenus", detail::closedMenusNames),
    detail::settingOf<&Uncertainties::offscreenFrames>("offscreenFrames", detail::offscreenFramesNames),
    detail::settingOf<&Uncertainties::removal>("removal", detail::removalNames),
    detail::settingOf<&Uncertainties::activation>("activation", detail::activationNames),
    detail::settingOf<&Uncertainties::placement>("placement", detail::placementNames),
    detail::settingOf<&Uncertainties::hiddenAnchor>("hiddenAnchor", detail::hiddenAnchorNames),
    detail::settingOf<&Uncertainties::othersActivation>("othersActivation", detail::othersActivationNames),
    detail::settingOf<&Uncertainties::agentTree>("agentTree", detail::agentTreeNames),
    detail::settingOf<&Uncertainties::agentOwners>("agentOwners", detail::agentOwnersNames),
    detail::settingOf<&Uncertainties::agentLabels>("agentLabels", detail::agentLabelsNames),
    detail::settingOf<&Uncertainties::overflowFrame>("overflowFrame", detail::overflowFrameNames),
    detail::settingOf<&Uncertainties::hostedPositions>("hostedPositions", detail::hostedPositionsNames),
    detail::settingOf<&Uncertainties::hostedDrags>("hostedDrags", detail::hostedDragsNames),
};

/// Null when there is no setting of that name.
constexpr const UncertaintySetting* uncertaintySetting(std::string_view name) {
    for (const UncertaintySetting& setting : uncertaintySettings)
        if (setting.name == name) return &setting;
    return nullptr;
}

} // namespace mac_model
