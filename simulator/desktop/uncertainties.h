#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <type_traits>

namespace mac_model {

// Nobody has settled what real macOS does in these eight places. Each is a setting of the model, so that the
// program can be tried under either answer. The first enumerator is the likelier one and the default.

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

struct Uncertainties {
    ZeroPosition zeroPosition = ZeroPosition::Rightmost;
    LongItem longItem = LongItem::Pushes;
    RevokedAccess revokedAccess = RevokedAccess::ApiDisabled;
    PermissionNotice permissionNotice = PermissionNotice::Prompt;
    EmptyExtras emptyExtras = EmptyExtras::NoValue;
    ClosedMenus closedMenus = ClosedMenus::Listed;
    OffscreenFrames offscreenFrames = OffscreenFrames::True;
    Removal removal = Removal::ForgetsPosition;

    bool operator==(const Uncertainties&) const = default;
};

/// One row of `uncertaintySettings`: a setting by its name in desktop files and in the driving protocol.
struct UncertaintySetting {
    std::string_view name;
    std::array<std::string_view, 2> values; ///< the default first
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
constexpr UncertaintySetting settingOf(std::string_view name, std::string_view likely,
                                       std::string_view other) {
    return {name,
            {likely, other},
            [](Uncertainties& model, std::size_t value) {
                auto& field = model.*Field;
                field = static_cast<std::remove_reference_t<decltype(field)>>(value);
            },
            [](const Uncertainties& model) { return static_cast<std::size_t>(model.*Field); }};
}

} // namespace detail

inline constexpr std::array uncertaintySettings{
    detail::settingOf<&Uncertainties::zeroPosition>("zeroPosition", "rightmost", "leftmost"),
    detail::settingOf<&Uncertainties::longItem>("longItem", "pushes", "stopsAtMenus"),
    detail::settingOf<&Uncertainties::revokedAccess>("revokedAccess", "apiDisabled", "timesOut"),
    detail::settingOf<&Uncertainties::permissionNotice>("permissionNotice", "prompt", "stale"),
    detail::settingOf<&Uncertainties::emptyExtras>("emptyExtras", "noValue", "unsupported"),
    detail::settingOf<&Uncertainties::closedMenus>("closedMenus", "listed", "empty"),
    detail::settingOf<&Uncertainties::offscreenFrames>("offscreenFrames", "true", "clamped"),
    detail::settingOf<&Uncertainties::removal>("removal", "forgetsPosition", "keepsPosition"),
};

/// Null when there is no setting of that name.
constexpr const UncertaintySetting* uncertaintySetting(std::string_view name) {
    for (const UncertaintySetting& setting : uncertaintySettings)
        if (setting.name == name) return &setting;
    return nullptr;
}

} // namespace mac_model
